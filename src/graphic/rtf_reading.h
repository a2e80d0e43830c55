#pragma once

#include "core/reporter.h"
#include "graphic/rich_text_builder.h"
#include "graphic/rtf_picture.h"
#include "graphic/rtf_tables.h"
#include "graphic/rtf_tokenizer.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zolt {

/// What becomes of the characters of a group.
enum class RtfDestination {
    Text,
    Skip,
    FontTable,
    ColourTable,
    Picture,
    /// A drawn shape: its text and its picture count, its properties don't.
    Shape,
    ShapePropertyName,
    ShapePropertyValue,
    /// A picture, and behind it the same picture for programs that can't read it.
    PreferredPicture,
    OtherPicture,
    /// A text in the document's code page, and behind it the same in Unicode.
    Alternatives,
    UnicodeAlternative,
    FieldInstruction,
    FieldResult,
};

/// The places that \shppict and \nonshppict give to a picture; the second one counts
/// where the first could not be read, or only as a frame.
enum class RtfPicturePlace { Only, Preferred, Other, OtherForFrame };

struct RtfState {
    RtfDestination destination = RtfDestination::Text;
    int font = 0;
    FontKind fontKind = FontKind::Foreign;
    int codePage = kWindowsCodePage;
    /// How many characters stand behind \u for programs without Unicode.
    int fallbackLength = 1;
    bool hidden = false;
    /// Struck out by somebody who keeps track of changes.
    bool deleted = false;
    /// The field's instruction has given the character that its result repeats.
    bool symbolGiven = false;
    RtfPicturePlace picturePlace = RtfPicturePlace::Only;
    CharFormat format{.font = 0, .halfPoints = 24};
};

/// The edges of a drawn shape, in twips.
struct RtfShapeEdges {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    int width() const { return distance(left, right); }
    int height() const { return distance(top, bottom); }

private:
    static int distance(std::int64_t from, std::int64_t to) {
        return static_cast<int>(std::clamp<std::int64_t>(to - from, 0, std::numeric_limits<int>::max()));
    }
};

/// The work of richTextFromRtf: a walk over the tokens with a stack of states, one
/// an open group. What a control word does stands in the tables of
/// rtf_control_words.cpp.
class RtfReader {
public:
    RtfReader(std::string_view rtf, const Progress &progress)
        : m_tokens(rtf), m_reporter(progress, rtf.size()) {}

    RichText read();

private:
    using Handler = void (*)(RtfReader &, const RtfToken &);
    /// Where the \* in front of a word stands.
    enum class Star { None, BehindBrace, InText };

    void handle(const RtfToken &token);
    void startGroup();
    void endGroup();
    void leave(const RtfState &inner);
    void word(const RtfToken &token);
    void symbol(const RtfToken &token);
    void characters(std::string_view bytes);
    void hexDigits(std::string_view digits);
    void unicode(int value);
    void enter(RtfDestination destination);
    bool takesShapePicture() const;
    void enterOtherPicture();
    void finishPicture();
    void finishInstruction();

    void appendText(std::string_view bytes);
    void appendCharacter(char32_t character);
    void appendSoftHyphen();
    void append(std::string_view bytes);
    void endBegunCharacter();
    void startContent();
    void endParagraph();
    void endLineIfBegun();
    void endCell();
    void endRow();
    void separateCells();

    void setPlain();
    void setFont(int number);
    void setDocumentCodePage(int codePage);
    void setHalfPoints(int halfPoints);

    RtfState &state() { return m_states.back(); }
    CharFormat &format() { return state().format; }
    bool skipping() const {
        const RtfDestination destination = m_states.back().destination;
        return destination == RtfDestination::Skip || destination == RtfDestination::FieldInstruction;
    }
    bool isVisible() const { return !m_states.back().hidden && !m_states.back().deleted; }

    static const std::unordered_map<std::string_view, Handler> &words();
    static const std::unordered_map<std::string_view, char32_t> &specialCharacters();
    static const std::unordered_map<std::string_view, RtfDestination> &destinations();
    static bool isOn(const RtfToken &token) { return token.parameterOr(1) != 0; }

    RtfTokenizer m_tokens;
    Reporter m_reporter;
    RichTextBuilder m_builder;
    RtfFontTable m_fonts;
    RtfColourTable m_colours;
    RtfTranslations m_translations;

    std::vector<RtfState> m_states{RtfState{}};
    /// Groups open beyond kDeepestGroup.
    std::size_t m_deeper = 0;
    int m_defaultFont = 0;
    int m_documentCodePage = kWindowsCodePage;
    /// What stood in front of the token that is handled.
    RtfToken::Kind m_previous = RtfToken::Kind::End;
    Star m_star = Star::None;
    /// The first bytes of a character of several bytes, and their code page.
    std::string m_begun;
    int m_begunCodePage = kWindowsCodePage;
    /// The first half of a character beyond 65535, 0 without one.
    char32_t m_firstHalf = 0;
    /// Characters still to drop behind \u.
    int m_fallbackLeft = 0;
    bool m_cellEnded = false;

    RtfPicture m_picture;
    int m_highDigit = -1;
    /// The picture of the last \shppict.
    std::optional<RichPicture::Kind> m_preferred;
    RtfShapeEdges m_shape;
    std::string m_shapeProperty;
    std::string m_instruction;
};

} // namespace zolt
