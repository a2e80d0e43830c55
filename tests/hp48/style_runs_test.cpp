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

/// The rule read aloud, over the whole text.
class Scan {
public:
    explicit Scan(std::string_view text) : m_text(text), m_looks(text.size()), m_closes(text.size()) {
        while (m_at < text.size())
            step();
    }
    Looks looks() const { return m_looks; }

private:
    bool codeAt(std::size_t position, char letter) const {
        return m_text.substr(position, 2) == std::string{kStyleMark, letter};
    }
    void mark(std::size_t position, Kind kind) {
        for (const std::size_t i : {position, position + 1})
            m_looks[i] = {kind, kind == Kind::PassedCodes ? m_looks[i].style : Style::Plain};
    }
    void step() {
        bool passed = false;
        passClosing();
        for (const StyleCode &code : kStyleCodes)
            if (codeAt(m_at, code.letter))
                open(code);
        for (const StyleCode &code : kStyleCodes)
            passed = passed || codeAt(m_at, code.letter);
        if (passed)
            mark(m_at, Kind::PassedCodes);
        m_at += passed ? 2 : 1;
    }
    void open(const StyleCode &code) {
        const std::size_t begin = m_at;
        m_at += 2;
        std::size_t end = m_at;
        while (end < m_text.size() && !(codeAt(end, code.letter) && !m_closes[end]))
            ++end;
        mark(begin, end < m_text.size() ? Kind::Codes : Kind::LoneCodes);
        if (end < m_text.size()) {
            for (std::size_t i = m_at; i < end; ++i)
                if (m_looks[i].kind == Kind::Text)
                    m_looks[i].style = code.style;
            mark(end, Kind::Codes);
            m_closes[end] = true;
        }
        passClosing();
    }
    void passClosing() {
        while (m_at < m_text.size() && m_closes[m_at])
            m_at += 2;
    }

    std::string_view m_text;
    std::size_t m_at = 0;
    Looks m_looks;
    std::vector<bool> m_closes;
};

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
            const Looks before = Scan(text).looks();
            text.replace(from, gone, inserted);
            const bool told = runs.replaced(from, gone, inserted, from > 0 ? text[from - 1] : '\0',
                                            at(text, from + inserted.size()));
            ASSERT_EQ(runs.size(), text.size());
            const Looks expected = Scan(text).looks();
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
        ASSERT_EQ(looksOf(runs.between(0, text.size())), Scan(text).looks()) << "round " << round;
    }
}

} // namespace
} // namespace zolt
