// Times of the work on whole documents: reading, testing and writing the
// calculator's file, searching, replacing, optimising and counting.

#include "core/document.h"
#include "core/file.h"
#include "core/find.h"
#include "core/optimise.h"
#include "core/word_count.h"
#include "hp48/hp_file.h"
#include "hp48/integrity_test.h"

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <utility>

namespace {

constexpr std::size_t kDocumentBytes = 10'000'000;
constexpr std::size_t kLetters = 1'000'000;

/// Lines of 33 columns: words, styles and picture cells, some of them blank.
std::string document() {
    const std::string lines = "O rato roeu a rolha do rei \"R\" !\r\n"
                              "\x0B"
                              "Bnegrito\x0B"
                              "B e texto simples depois\r\n"
                              "\x9E"
                              "0F9A3C\x9E"
                              "000000\x9E"
                              "FFFFFF\x9E"
                              "000000\x9E"
                              "000000\r\n";
    std::string text;
    while (text.size() < kDocumentBytes)
        text += lines;
    return text;
}

/// The shortest of some runs, in milliseconds.
template <typename Work> void measure(const char *name, Work work) {
    double best = 1e9;
    for (int run = 0; run < 5; ++run) {
        const auto start = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
        best = std::min(best, time.count());
    }
    std::printf("%-52s %8.1f ms\n", name, best);
}

} // namespace

int main() {
    const std::string folder = std::filesystem::temp_directory_path().string() + "/";
    const std::string input = folder + "zolt-bench.zlt";
    const std::string output = folder + "zolt-bench-hp";
    const std::string text = document();
    zolt::writeFile(input, zolt::fileFromDocument(text));
    measure("read, correct and write a document of 10 MB", [&] {
        std::string document = zolt::documentFromFile(zolt::readFile(input).bytes);
        zolt::writeFile(output, zolt::hpFile(zolt::correctedDocument(std::move(document))));
    });
    measure("test 10 MB", [&] { zolt::testIntegrity(text); });
    std::filesystem::remove(input);
    std::filesystem::remove(output);

    measure("search 10 MB to the end, matching case", [&] { zolt::scan(text, {"rolha do rex", true}, 0); });
    measure("search 10 MB to the end, any case", [&] { zolt::scan(text, {"rolha do rex", false}, 0); });
    const std::string letters(kLetters, 'a');
    const std::string nearlyFound = std::string(1000, 'a') + "b";
    measure("search 1 MB of one letter for 1000 and another", [&] {
        zolt::scan(letters, {nearlyFound, true}, 0);
    });
    measure("replace all in 1 MB of one letter by two", [&] {
        zolt::replaceAll(letters, {"a", false}, "bb");
    });
    measure("replace all of two letters in 1 MB by one", [&] {
        zolt::replaceAll(letters, {"aa", true}, "b");
    });
    measure("optimise 10 MB totally", [&] { zolt::optimiseImages(text, zolt::Optimisation::Total); });
    measure("count the words of 10 MB", [&] { zolt::countWords(text); });
    measure("count one word of 1 MB", [&] { zolt::countWords(letters); });
}
