#!/bin/sh
# Builds the libFuzzer targets as the preset "fuzz" does, and lets each read its seeds:
#   build_fuzzers.sh SOURCE_FOLDER BUILD_FOLDER
# Exits with 77, "skipped", without Clang and its libFuzzer. Without the names of lines the
# objects are the same for all build folders, so that ccache finds them.
set -e
source=$1
build=$2
mkdir -p "$build"
echo 'extern "C" int LLVMFuzzerTestOneInput(const unsigned char *, unsigned long) { return 0; }' >"$build/probe.cpp"
if ! clang++ -fsanitize=fuzzer,address,undefined -o "$build/probe" "$build/probe.cpp"; then
    echo "Clang with its libFuzzer isn't installed."
    exit 77
fi
cd "$source"
cmake --preset fuzz -B "$build" -DCMAKE_CXX_FLAGS_RELWITHDEBINFO=-O1
cmake --build "$build" --target fuzzers
for fuzzer in "$build"/bin/*_fuzz; do
    name=$(basename "$fuzzer" _fuzz)
    echo "$name"
    "$fuzzer" -runs=0 -timeout=60 -rss_limit_mb=1024 "$source/tests/fuzz/corpus/$name" 2>"$build/$name.log" ||
        { cat "$build/$name.log" && exit 1; }
done
