#include "fuzz/mutate.h"

#include "core/file.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <random>
#include <string_view>

namespace zolt::test {

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
    char byte() { return static_cast<char>(below(256)); }

    void change() {
        switch (below(8)) {
        case 0:
            return flipBit();
        case 1:
            return setByte();
        case 2:
            return removeStretch();
        case 3:
            return repeatStretch();
        case 4:
            return insertFromOther();
        case 5:
            return insertBytes();
        case 6:
            return insertNumber();
        default:
            if (below(4) == 0)
                m_input.resize(place());
        }
    }

    void flipBit() {
        if (!m_input.empty())
            m_input[below(m_input.size())] ^= static_cast<char>(1 << below(8));
    }

    void setByte() {
        if (!m_input.empty())
            m_input[below(m_input.size())] = byte();
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

    void insertBytes() {
        std::string bytes(1 + below(4), '\0');
        std::generate(bytes.begin(), bytes.end(), [this] { return byte(); });
        m_input.insert(place(), bytes);
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

    const std::vector<std::string> &m_corpus;
    std::mt19937_64 m_random;
    std::string m_input;
};

} // namespace

std::vector<std::string> readCorpus(const std::string &folder) {
    std::vector<std::string> paths;
    for (const auto &entry : std::filesystem::directory_iterator(folder))
        paths.push_back(entry.path().string());
    std::sort(paths.begin(), paths.end());
    std::vector<std::string> corpus;
    for (const std::string &path : paths)
        corpus.push_back(readFile(path).bytes);
    return corpus;
}

std::string mutated(const std::vector<std::string> &corpus, std::uint64_t run) {
    return Mutator(corpus, run).run();
}

} // namespace zolt::test
