#include "hp48/styles_and_pictures.h"

#include "core/reporter.h"
#include "hp48/open_runs.h"
#include "images/image_text.h"

#include <algorithm>
#include <utility>

namespace zolt {

namespace {

class Compiler {
public:
    Compiler(std::string_view text, const PictureTaker &onPicture, PlaceMap *places)
        : m_text(text), m_marks(text), m_ends(text.size()), m_onPicture(onPicture), m_places(places) {
        m_result.characters.reserve(text.size());
    }

    bool atEnd() const { return m_marks.atEnd(m_at); }
    std::size_t position() const { return m_at.position; }
    StyledText finish() { return std::move(m_result); }

    /// Compiles what stands at the position: a stretch of plain characters, or codes
    /// and the character behind them, or a picture. False when asked to stop.
    bool compileNext() {
        if (m_marks.at(m_at) == kStyleMark) {
            m_at = m_runs.takeCodes(m_marks, m_ends, m_at);
            if (atEnd())
                return true;
            if (m_marks.at(m_at) != kCellMark) {
                copyUpTo(m_at.position + 1);
                return true;
            }
        }
        if (m_marks.at(m_at) == kCellMark)
            return takePicture();
        copyUpTo(endOfStretch());
        return true;
    }

private:
    bool takePicture() {
        const StyleMarks::Place end = endOfPicture(m_marks, m_at, m_ends);
        PictureBlock block;
        block.position = m_result.characters.size();
        block.cells = m_marks.between(m_at, end);
        const ImageTextSize size = measureImageText(block.cells);
        block.columns = size.columns;
        block.lines = size.lines;
        if (m_onPicture && !m_onPicture(block))
            return false;
        m_result.pictures.push_back(std::move(block));
        append({&kPicturePlace, 1});
        m_at = end;
        return true;
    }

    /// Where the plain characters from the position on end, or their style.
    std::size_t endOfStretch() {
        std::size_t end = m_marks.nextMark(m_at);
        styleHere();
        end = m_runs.endOfStyle(end);
        const std::string_view stretch = m_text.substr(m_at.position, end - m_at.position);
        return m_at.position + std::min(stretch.find(kCellMark), stretch.size());
    }

    void copyUpTo(std::size_t end) {
        const std::size_t length = end - m_at.position;
        append(m_text.substr(m_at.position, length));
        m_at = m_marks.advance(m_at, length);
    }

    /// Adds what stands for the characters at the position.
    void append(std::string_view characters) {
        if (m_places)
            m_places->add(m_at.position, m_result.characters.size());
        m_result.append(characters, styleHere());
    }

    Style styleHere() { return m_runs.styleAt(m_at.position); }

    std::string_view m_text;
    StyleMarks m_marks;
    KnownEnds m_ends;
    const PictureTaker &m_onPicture;
    PlaceMap *m_places;
    StyleMarks::Place m_at;
    OpenRuns m_runs;
    StyledText m_result;
};

} // namespace

std::optional<StyledText> compileStylesAndPictures(std::string_view text, const Progress &progress,
                                                   const PictureTaker &onPicture, PlaceMap *places) {
    Compiler compiler(text, onPicture, places);
    Reporter reporter(progress, text.size());
    while (!compiler.atEnd())
        if (!reporter.goOn(compiler.position()) || !compiler.compileNext())
            return std::nullopt;
    return compiler.finish();
}

} // namespace zolt
