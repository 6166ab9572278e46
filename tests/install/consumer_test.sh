#!/usr/bin/env bash
# Installs the build into a scratch prefix and uses it as an outside project would:
# find_package(quillmark) from CMake, pkg-config from a plain C build, and, when the
# Python package is built, `import quillmark` from the installed tree.
# Arguments: BUILD_DIR SOURCE_DIR C_COMPILER CMAKE [PYTHON_INSTALL_DIR PYTHON]
set -euo pipefail
build=$1 src=$2 cc=$3 cmake=$4 pydir=${5:-} python=${6:-}
work=$build/install-test
rm -rf "$work"
mkdir -p "$work/results-cmake" "$work/results-pc"
prefix=$work/prefix
model_dir=$src/examples
model=two-stroke-main-engine.qmk

"$cmake" --install "$build" --prefix "$prefix" > "$work/install.log"
for f in include/quillmark/quillmark.h bin/quillmark; do
  test -e "$prefix/$f" || { echo "missing in the prefix: $f"; exit 1; }
done
libdir=$(dirname "$(find "$prefix" -name 'libquillmark.so' | head -n1)")
test -n "$libdir" || { echo "no libquillmark.so in the prefix"; exit 1; }

# CMake consumer
"$cmake" -S "$src/tests/install/consumer" -B "$work/cmake-consumer" -DCMAKE_PREFIX_PATH="$prefix" \
  -DCMAKE_C_COMPILER="$cc" > "$work/cmake-consumer.log"
"$cmake" --build "$work/cmake-consumer" > "$work/cmake-consumer-build.log"
LD_LIBRARY_PATH=$libdir "$work/cmake-consumer/consumer" "$model_dir" "$model" "$work/results-cmake"

# pkg-config consumer
export PKG_CONFIG_PATH=$libdir/pkgconfig
# shellcheck disable=SC2046
"$cc" -o "$work/pc-consumer" "$src/tests/install/consumer/consumer.c" $(pkg-config --cflags --libs quillmark)
LD_LIBRARY_PATH=$libdir "$work/pc-consumer" "$model_dir" "$model" "$work/results-pc"

# The tool installed beside them
"$prefix/bin/quillmark" check "$model_dir/$model" > /dev/null

if [ -n "$pydir" ] && [ -n "$python" ]; then
  PYTHONPATH=$prefix/$pydir "$python" -c "import quillmark, sys; sys.exit(0 if quillmark.__file__.startswith('$prefix') else 1)"
fi
echo "consumers built and ran against $prefix"
