#include "core/optimise.h"

#include "support/texts.h"

#include <gtest/gtest.h>

namespace zolt {
namespace {

/// The `length` characters at `position` (from 1), fewer at the text's end.
std::string mid(const std::string &text, std::size_t position, std::size_t length) {
    return position > text.size() ? std::string() : text.substr(position - 1, length);
}

const std::string kCell(kBlankCell);

/// Optimisation as a walk over positions, one deletion at a time.
std::string optimisedSlowly(std::string text, Optimisation kind) {
    text += "\r\n";
    for (std::size_t p = 1;; ++p) {
        while (mid(text, p, 7) == kCell) {
            const std::size_t lineEnd = text.find("\r\n", p - 1);
            if (text.substr(p - 1, lineEnd - (p - 1))
                    .find_first_not_of("\x9E"
                                       "0") != std::string::npos)
                break;
            text.erase(p - 1, 7);
        }
        if (p == text.size())
            break;
    }
    text.resize(text.size() - 2);
    if (kind == Optimisation::Total) {
        const std::size_t length = text.size();
        for (std::size_t p = 1; p <= length; ++p)
            if (mid(text, p, 7) == kCell)
                text.replace(p - 1, 7, " ");
    }
    return text;
}

TEST(Optimisation, EqualsTheSlowWalkOverRandomDocuments) {
    const std::vector<std::string> pieces{kCell,    kCell, kCell, "\x9E", "0",    "00",
                                          "000000", "A",   "\r",  "\n",   "\r\n", " "};
    for (const std::string &document : test::randomTexts(pieces, 20000))
        for (const Optimisation kind : {Optimisation::Partial, Optimisation::Total})
            ASSERT_EQ(optimiseImages(document, kind), optimisedSlowly(document, kind))
                << testing::PrintToString(document);
}

} // namespace
} // namespace zolt
