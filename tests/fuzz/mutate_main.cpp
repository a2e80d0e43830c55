// Drives one fuzz target without libFuzzer: first the files of the corpus as they
// stand, then a fixed series of mutations of them.
//   ZOLT_FUZZ_RUNS=N   how many mutations (4000 without it)
//   ZOLT_FUZZ_FIRST=N  the number of the first one, to come back to a finding
//   ZOLT_FUZZ_TRACE=1  name each mutation before it runs

#include "fuzz/mutate.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

namespace {

std::uint64_t setting(const char *name, std::uint64_t otherwise) {
    const char *value = std::getenv(name);
    return value ? std::strtoull(value, nullptr, 10) : otherwise;
}

void run(const std::string &input) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(input.data()), input.size());
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s CORPUS\n", argv[0]);
        return 2;
    }
    const std::vector<std::string> corpus = zolt::test::readCorpus(argv[1]);
    if (corpus.empty()) {
        std::fprintf(stderr, "no files in %s\n", argv[1]);
        return 1;
    }
    for (const std::string &input : corpus)
        run(input);
    const std::uint64_t first = setting("ZOLT_FUZZ_FIRST", 0);
    const std::uint64_t runs = setting("ZOLT_FUZZ_RUNS", 4000);
    const bool trace = setting("ZOLT_FUZZ_TRACE", 0) != 0;
    for (std::uint64_t number = first; number < first + runs; ++number) {
        if (trace)
            std::fprintf(stderr, "mutation %llu\n", static_cast<unsigned long long>(number));
        run(zolt::test::mutated(corpus, number));
    }
    std::printf("%zu files and %llu mutations without a finding\n", corpus.size(),
                static_cast<unsigned long long>(runs));
    return 0;
}
