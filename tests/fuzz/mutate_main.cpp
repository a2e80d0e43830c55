// Drives one fuzz target without libFuzzer: first the files of the corpus as they
// stand, then a fixed series of mutations of them.
//   ZOLT_FUZZ_RUNS=N   how many mutations (4000 without it)
//   ZOLT_FUZZ_FIRST=N  the number of the first one, to come back to a finding
//   ZOLT_FUZZ_TRACE=1  name each mutation before it runs

#include "core/file.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string_view>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

namespace {

class Mutator {
public:
    Mutator(const std::vector<std::string> &corpus, std::uint64_t run)
        : m_corpus(corpus), m_random(run), m_input(corpus[below(corpus.size())]) {}

    std::string run() {
        for (std::size_t changes = 1 + below(6); changes > 0; --changes)
            change();
        return std::move(m_input);
    }

private:
    std::size_t below(std::size_t limit) {
        return limit == 0 ? 0 : std::uniform_int_distribution<std::size_t>(0, limit - 1)(m_random);
    }
    std::size_t place() { return below(m_input.size() + 1); }
    /// Mostly short, seldom as long as `all`.
    std::size_t length(std::size_t all) {
        return below(std::min(all, below(8) == 0 ? all : std::size_t{16}) + 1);
    }

    void change() {
        static constexpr void (Mutator::*kChanges[])() = {&Mutator::setByte,       &Mutator::removeStretch,
                                                          &Mutator::repeatStretch, &Mutator::insertFromOther,
                                                          &Mutator::insertNumber,  &Mutator::cutOff};
        (this->*kChanges[below(std::size(kChanges))])();
    }

    void setByte() {
        const std::size_t at = place();
        const int old = at < m_input.size() ? m_input[at] : 0;
        m_input.replace(at, 1, 1, static_cast<char>(below(2) == 0 ? old ^ 1 << below(8) : below(256)));
    }

    void removeStretch() {
        const std::size_t at = place();
        m_input.erase(at, length(m_input.size() - at));
    }

    void repeatStretch() {
        const std::size_t at = place();
        const std::string stretch = m_input.substr(at, length(m_input.size() - at));
        for (std::size_t times = 1 + below(below(16) == 0 ? 200 : 3); times > 0; --times)
            m_input.insert(at, stretch);
    }

    void insertFromOther() {
        const std::string &other = m_corpus[below(m_corpus.size())];
        const std::size_t from = below(other.size() + 1);
        m_input.insert(place(), other, from, length(other.size() - from));
    }

    void insertNumber() {
        static constexpr std::array<std::string_view, 8> kNumbers{
            "0", "-1", "255", "65536", "2147483647", "-2147483648", "4294967296", "99999999999999999999"};
        const std::size_t digit = m_input.find_first_of("0123456789", place());
        if (digit == std::string::npos)
            return;
        const std::size_t end = m_input.find_first_not_of("0123456789", digit);
        m_input.replace(digit, std::min(end, m_input.size()) - digit, kNumbers[below(kNumbers.size())]);
    }

    void cutOff() {
        if (below(4) == 0)
            m_input.resize(place());
    }

    const std::vector<std::string> &m_corpus;
    std::mt19937_64 m_random;
    std::string m_input;
};

std::vector<std::string> readCorpus(const std::string &folder) {
    std::vector<std::string> corpus;
    for (const auto &entry : std::filesystem::directory_iterator(folder))
        corpus.push_back(zolt::readFile(entry.path().string()).bytes);
    std::sort(corpus.begin(), corpus.end());
    return corpus;
}

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
    const std::vector<std::string> corpus = readCorpus(argv[1]);
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
        run(Mutator(corpus, number).run());
    }
    std::printf("%zu files and %llu mutations without a finding\n", corpus.size(),
                static_cast<unsigned long long>(runs));
    return 0;
}
