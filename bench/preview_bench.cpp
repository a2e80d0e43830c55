// Times of the preview's compiler and of the wrap at words for ordinary documents and
// for documents made of one thing only, with 1 MB and 10 MB: the second may take
// twelve times the first.

#include "hp48/preview_compiler.h"
#include "hp48/word_wrap.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <malloc.h>

namespace {

using zolt::PreviewFlavour;

struct Kind {
    const char *name;
    /// The document is `first` over and over, then `second` as often.
    std::string first;
    std::string second;
};

std::string documentOf(const Kind &kind, std::size_t bytes) {
    std::string document;
    document.reserve(bytes + 1024);
    const std::size_t half =
        kind.second.empty() ? bytes : bytes * kind.first.size() / (kind.first.size() + kind.second.size());
    while (document.size() < half)
        document += kind.first;
    while (document.size() < bytes)
        document += kind.second;
    return document;
}

/// Processor time, since other programs may run beside this one.
double seconds(const std::string &document, bool (*work)(const std::string &)) {
    double best = 1e9;
    for (int i = 0; i < 3; ++i) {
        // Each run takes its memory afresh, as the first preview of a session does.
        malloc_trim(0);
        const std::clock_t begin = std::clock();
        const bool done = work(document);
        const double time = static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
        if (!done)
            return 0;
        best = std::min(best, time);
    }
    return best;
}

template <PreviewFlavour flavour> bool preview(const std::string &document) {
    return !zolt::compilePreview(document, flavour).cancelled;
}

template <bool reflow> bool wrap(const std::string &document) {
    return zolt::wrapAtWords(document, {.reflow = reflow}).has_value();
}

std::string ordinaryPage() {
    std::string page = "\r\n*1. Um t\xEDtulo\r\n\r\n";
    for (int line = 0; line < 40; ++line) {
        page += "As linhas de um texto comum e as \x0B"
                "Bpalavras\x0B"
                "B que nele se destacam, "
                "com f\xF3rmulas \x0B/x\x0B/\x0B"
                "E2\x0B"
                "E e outras coisas que se l\xEA"
                "em.\r\n";
    }
    for (int line = 0; line < 4; ++line) {
        for (int column = 0; column < 20; ++column)
            page += "\x9E"
                    "1248F0";
        page += "\r\n";
    }
    return page;
}

} // namespace

int main() {
    const Kind kinds[] = {
        {"ordinary", ordinaryPage(), {}},
        {"plain lines", "Uma linha de texto sem mais nada.\r\n", {}},
        {"one line", "x", {}},
        {"line ends", "\r\n", {}},
        {"unpaired codes",
         "\x0B"
         "B\x0B"
         "V\x0B"
         "U",
         {}},
        {"marks alone", "\x0B", {}},
        {"runs of one character",
         "\x0B"
         "Bx\x0B"
         "B",
         {}},
        {"nested codes", "\x0B", "B"},
        {"marks and letters", "\x0B\x0B\x0B\x0B", "BVDU"},
        {"codes around codes",
         "\x0B"
         "U\x0B\x0B"
         "UB",
         "x\x0B"
         "B"},
        {"cells in one line",
         "\x9E"
         "1248F0",
         {}},
        {"cells in lines",
         "\x9E"
         "1248F0\x9E"
         "1248F0\x9E"
         "1248F0\r\n",
         {}},
        {"one-column pictures",
         "\x9E"
         "1248F0\r\n",
         {}},
        {"one-column, codes",
         "\x9E"
         "1248F0\r\n\x0B"
         "Babcde\r\n",
         {}},
        {"one long band, short ones",
         "\x9E"
         "1248F0",
         "\r\n\x9E"
         "1248F0\x9E"
         "1248F0"},
        {"broken cells",
         "\x9E"
         "12\r\n",
         {}},
        {"marks of cells", "\x9E", {}},
        {"double size",
         "\x0B"
         "Dabcdefghijklmnopqrstuvw",
         {}},
        {"menu entries", "\r\n*Entrada", {}},
        {"words", "palavra a palavra ", {}},
        {"words that begin no line", "*palavra ", {}},
    };
    const struct {
        const char *name;
        bool (*run)(const std::string &);
    } works[] = {
        {"HP48", preview<PreviewFlavour::Hp48>},
        {"Normal", preview<PreviewFlavour::Normal>},
        {"Wrap", wrap<false>},
        {"Reflow", wrap<true>},
    };
    std::printf("%-26s %12s %10s %10s %8s\n", "", "1 MB, ms", "10 MB, ms", "MB/s", "growth");
    for (const auto &work : works) {
        std::printf("%s\n", work.name);
        for (const Kind &kind : kinds) {
            const double small = seconds(documentOf(kind, 1'000'000), work.run);
            const double large = seconds(documentOf(kind, 10'000'000), work.run);
            std::printf("%-26s %12.1f %10.1f %10.1f %8.1f\n", kind.name, small * 1e3, large * 1e3, 10 / large,
                        large / small);
        }
    }
    return 0;
}
