# make run  : install what is missing, build, run the bundled example model, show its results
# make test : install what is missing, build, run every test
BUILD ?= build
JOBS ?= 2
EXAMPLE ?= examples/two-stroke-main-engine.qmk
OUT ?= out

.PHONY: all deps configure build run test bench clean

all: build

deps:
	@bash scripts/install-deps.sh

configure: deps
	@cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo > /dev/null

build: configure
	@cmake --build $(BUILD) -j$(JOBS)

run: build
	@mkdir -p $(OUT)
	$(BUILD)/quillmark run $(EXAMPLE) -o $(OUT) --type 3

test: build
	@cd $(BUILD) && ctest --output-on-failure -j$(JOBS)

bench: build
	$(BUILD)/quillmark_bench

clean:
	rm -rf $(BUILD) $(OUT)
