# make run  : install what is missing, build, run the bundled example model, show its results
# make test : install what is missing, build, run every test
# make sanitize   : the tests built with AddressSanitizer and UndefinedBehaviorSanitizer, and run
# make fuzz-smoke : the fuzz target of the entry (clang), a short run from a fixed seed
# make fuzz       : the same target for FUZZ_SECONDS on one core, lowest priority
BUILD ?= build
JOBS ?= 2
EXAMPLE ?= examples/two-stroke-main-engine.qmk
OUT ?= out
SANITIZE_BUILD ?= build-sanitize
FUZZ_BUILD ?= build-fuzz
FUZZ_RUNS ?= 500
FUZZ_SECONDS ?= 1200
FUZZ_SEEDS = fuzz/corpus examples tests/data/datacheck
PYTHON ?= /usr/bin/python3

.PHONY: all deps configure build run test bench clean sanitize fuzz-build fuzz-smoke fuzz

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
	@if ls $(BUILD)/python/quillmark/_quillmark*.so >/dev/null 2>&1; then \
	  for kind in campbell modes response; do \
	    PYTHONPATH=$(BUILD)/python MPLBACKEND=Agg $(PYTHON) -m quillmark plot $$kind $(EXAMPLE) $(OUT) \
	      -o $(OUT)/$$kind.png > /dev/null 2>&1 && echo "Plot: $(OUT)/$$kind.png"; \
	  done; true; \
	fi

test: build
	@cd $(BUILD) && ctest --output-on-failure -j$(JOBS)

# The benchmarks, then their table: wall and CPU time, the fast path against the literal one
# and two threads against one.
bench: build
	$(BUILD)/quillmark_bench --benchmark_out=$(BUILD)/bench.json --benchmark_out_format=json
	@$(PYTHON) scripts/bench_table.py $(BUILD)/bench.json

sanitize: deps
	@cmake -S . -B $(SANITIZE_BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DQUILLMARK_SANITIZE=ON \
		-DQUILLMARK_BENCH=OFF > /dev/null
	@cmake --build $(SANITIZE_BUILD) -j$(JOBS)
	@cd $(SANITIZE_BUILD) && ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
		ctest --output-on-failure -j$(JOBS)

fuzz-build: deps
	@cmake -S . -B $(FUZZ_BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_C_COMPILER=clang \
		-DCMAKE_CXX_COMPILER=clang++ -DQUILLMARK_FUZZ=ON -DQUILLMARK_TESTS=OFF -DQUILLMARK_BENCH=OFF > /dev/null
	@cmake --build $(FUZZ_BUILD) -j$(JOBS) --target quillmark_fuzz

# New inputs go to a scratch corpus; the seeds in the tree are only read.
fuzz-smoke: fuzz-build
	@rm -rf $(FUZZ_BUILD)/corpus && mkdir -p $(FUZZ_BUILD)/corpus
	$(FUZZ_BUILD)/quillmark_fuzz -seed=1 -runs=$(FUZZ_RUNS) -max_len=8192 -rss_limit_mb=1024 \
		$(FUZZ_BUILD)/corpus $(FUZZ_SEEDS)

fuzz: fuzz-build
	@mkdir -p $(FUZZ_BUILD)/corpus
	nice -n 19 $(FUZZ_BUILD)/quillmark_fuzz -max_total_time=$(FUZZ_SECONDS) -max_len=8192 \
		-rss_limit_mb=1024 -print_final_stats=1 $(FUZZ_BUILD)/corpus $(FUZZ_SEEDS)

clean:
	rm -rf $(BUILD) $(OUT) $(SANITIZE_BUILD) $(FUZZ_BUILD)
