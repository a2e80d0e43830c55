#include "hp48/style_runs.h"

#include "hp48/styles_and_pictures.h"
#include "support/texts.h"

#include <gtest/gtest.h>
#include <random>

namespace zolt {
namespace {

using test::withMarks;
using Kind = StyleRuns::Span::Kind;

/// What one character is to the eye.
struct Look {
    Kind kind = StyleRuns::Span::Text;
    Style style = Style::Plain;
    bool operator==(const Look &) const = default;
};
using Looks = std::vector<Look>;

Looks looksOf(const std::vector<StyleRuns::Span> &spans) {
    Looks looks;
    for (const StyleRuns::Span &span : spans)
        looks.insert(looks.end(), span.end - span.begin, {span.kind, span.style});
    return looks;
}

/// Of the whole text, put in at once.
Looks looksOf(std::string_view text) {
    StyleRuns runs;
    runs.replaced(0, 0, text, '\0', '\0');
    return looksOf(runs.between(0, text.size()));
}

std::string randomPieces(std::mt19937 &random, const std::vector<std::string> &pieces, unsigned most) {
    std::string text;
    for (unsigned left = static_cast<unsigned>(random()) % (most + 1); left > 0; --left)
        text += pieces[random() % pieces.size()];
    return withMarks(text);
}

std::vector<std::string> someCodes(std::mt19937 &random) {
    std::vector<std::string> pieces{"ab", "\r\n", "B"};
    for (unsigned left = 1 + random() % 4; left > 0; --left)
        pieces.push_back(std::string("@") + kStyleCodes[random() % kStyleCodes.size()].letter);
    return pieces;
}

char at(const std::string &text, std::size_t position) {
    return position < text.size() ? text[position] : '\0';
}

TEST(StyleRuns, AreThoseOfTheCompiler) {
    std::mt19937 random(21);
    for (int round = 0; round < 5'000; ++round) {
        const std::string text = randomPieces(random, someCodes(random), 30);
        StyleRuns runs(4);
        runs.replaced(0, 0, text, '\0', '\0');
        StyledText shown;
        for (const StyleRuns::Span &span : runs.between(0, text.size()))
            if (span.kind == Kind::Text || span.kind == Kind::PassedCodes)
                shown.append(text.substr(span.begin, span.end - span.begin), span.style);
        ASSERT_EQ(shown, compileStylesAndPictures(text).value()) << "round " << round;
    }
}

TEST(StyleRuns, TellCodesByWhatBecomesOfThem) {
    // A letter a character: (c)odes of a run, (l)one codes, (p)assed codes.
    const std::pair<const char *, const char *> cases[] = {
        {"a@Bb@Bc", "-cc-cc-"},       {"a@Bb@Uc", "-ll-ll-"},       {"@B@Bx@B", "cccc-ll"},
        {"@B@Vab@V@B", "ccpp--llcc"}, {"@V@Bab@B@V", "cccc--cccc"}, {"@Ba@Ub@Bc@U", "cc-cc-cc-cc"}};
    for (const auto &[text, kinds] : cases) {
        std::string told;
        for (const Look &look : looksOf(withMarks(text)))
            told += "-clp"[look.kind];
        EXPECT_EQ(told, kinds) << text;
    }
}

TEST(StyleRuns, StayRightUnderEdits) {
    std::mt19937 random(22);
    for (int round = 0; round < 60; ++round) {
        std::vector<std::string> pieces = someCodes(random);
        pieces.insert(pieces.end(), {"@", "U", "V"});
        StyleRuns runs(4);
        std::string text;
        for (int edit = 0; edit < 60; ++edit) {
            const std::size_t from = random() % (text.size() + 1);
            const std::size_t removed =
                random() % 3 == 0 ? random() % (text.size() - from + 1) : random() % 2;
            const std::size_t gone = std::min(removed, text.size() - from);
            const std::string inserted = randomPieces(random, pieces, edit % 20 == 0 ? 60 : 2);
            const Looks before = looksOf(text);
            text.replace(from, gone, inserted);
            const bool told = runs.replaced(from, gone, inserted, from > 0 ? text[from - 1] : '\0',
                                            at(text, from + inserted.size()));
            ASSERT_EQ(runs.size(), text.size());
            const Looks expected = looksOf(text);
            Looks others = expected;
            others.erase(others.begin() + static_cast<std::ptrdiff_t>(from),
                         others.begin() + static_cast<std::ptrdiff_t>(from + inserted.size()));
            Looks othersBefore = before;
            othersBefore.erase(othersBefore.begin() + static_cast<std::ptrdiff_t>(from),
                               othersBefore.begin() + static_cast<std::ptrdiff_t>(from + gone));
            ASSERT_TRUE(told || others == othersBefore) << "round " << round << ", edit " << edit;

            const std::size_t begin = random() % (text.size() + 1);
            const std::size_t end = begin + random() % (text.size() - begin + 1);
            const Looks looks = looksOf(runs.between(begin, end));
            ASSERT_TRUE(std::equal(looks.begin(), looks.end(),
                                   expected.begin() + static_cast<std::ptrdiff_t>(begin),
                                   expected.begin() + static_cast<std::ptrdiff_t>(end)))
                << "round " << round << ", edit " << edit;
        }
        ASSERT_EQ(looksOf(runs.between(0, text.size())), looksOf(text)) << "round " << round;
    }
}

} // namespace
} // namespace zolt
