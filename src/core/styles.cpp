#include "core/styles.h"

#include "core/codes.h"

#include <algorithm>

namespace zolt {

namespace {

/// The column that a selection of at least one byte ends at, all bytes of its line counted. The line end
/// looked for is the last one that starts in front of the selection's first byte.
/// With position s, counted from 1, that is byte s - 1: a selection that starts
/// between a CR and its LF counts from that CR.
std::size_t endColumn(std::string_view text, std::size_t selStart, std::size_t selLength) {
    const std::size_t lineEnd = selStart == 0 ? std::string_view::npos : text.rfind(kLineEnd, selStart - 1);
    const std::size_t lineStart = lineEnd == std::string_view::npos ? 0 : lineEnd + kLineEnd.size();
    return selStart + selLength - lineStart;
}

/// What inside the selection stands against a style; the first such byte decides.
std::string_view obstacle(std::string_view selection) {
    const std::size_t mark = selection.find(kStyleMark);
    const std::size_t lineEnd = selection.find(kLineEnd);
    if (mark == lineEnd)
        return {};
    return mark < lineEnd ? kStyleMessages.alreadyFormatted : kStyleMessages.severalLines;
}

} // namespace

SelectionEdit applyStyle(std::string_view text, std::size_t selStart, std::size_t selLength, char letter) {
    const std::string_view selection = text.substr(std::min(selStart, text.size()), selLength);
    if (selection.empty())
        return {};
    const StyleCode *style = styleOfLetter(letter);
    const int limit = style ? style->columnLimit : kColumns;
    if (endColumn(text, selStart, selection.size()) > static_cast<std::size_t>(limit))
        return {SelectionEdit::Refused,
                {},
                limit == kDoubleColumns ? kStyleMessages.beyondColumn16 : kStyleMessages.beyondColumn33};
    if (const std::string_view message = obstacle(selection); !message.empty())
        return {SelectionEdit::Refused, {}, message};
    const std::string code{kStyleMark, letter};
    return {SelectionEdit::Replaced, code + std::string(selection) + code, {}};
}

SelectionEdit removeStyles(std::string_view selection) {
    if (selection.empty())
        return {};
    SelectionEdit edit{SelectionEdit::Replaced, {}, {}};
    edit.replacement.reserve(selection.size());
    for (std::size_t i = 0; i < selection.size(); ++i)
        if (selection[i] == kStyleMark && i + 1 < selection.size())
            ++i;
        else
            edit.replacement += selection[i];
    return edit;
}

std::string horizontalLine() {
    return std::string(kColumns, '-').append(kLineEnd);
}

} // namespace zolt
