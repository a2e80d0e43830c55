// The text edition's commands that put line ends at words, so that the calculator need not
// cut them.

#include "hp48/word_wrap.h"
#include "platform/text_pane.h"
#include "shell/base/frame.h"
#include "shell/base/status_line.h"
#include "shell/document/text/edit_text_frm.h"
#include "shell/preview/waiting.h"

#include <QPointer>
#include <optional>

namespace zolt {

namespace {

bool endsLine(char byte) {
    return byte == '\r' || byte == '\n';
}

/// Where in a text that was wrapped anew the place is that had this offset, from 0: a wrap
/// moves line ends alone, so the same bytes of words stand in front of it. A place at the
/// beginning of a line stays there if the line end does.
std::size_t placeInWrapped(std::string_view before, std::size_t offset, std::string_view after) {
    std::size_t words = 0;
    std::size_t lineEnds = 0;
    for (const char byte : before.substr(0, offset)) {
        words += endsLine(byte) ? 0 : 1;
        lineEnds = endsLine(byte) ? lineEnds + 1 : 0;
    }
    std::size_t place = 0;
    while (place < after.size() && words > 0)
        words -= endsLine(after[place++]) ? 0 : 1;
    while (place < after.size() && lineEnds > 0 && endsLine(after[place])) {
        ++place;
        --lineEnds;
    }
    return place;
}

std::optional<WrappedLines> wrapped(const std::string &text, std::size_t begin, std::size_t length,
                                    bool reflow) {
    const Waiting waiting(*frameWindow(), QStringLiteral("Wrapping lines..."));
    return wrapLinesAtWords(text, begin, length, {.reflow = reflow}, waiting.progress());
}

} // namespace

void EditTextFrm::wrapLines(bool reflow) {
    const QPointer<TextPane> pane = &activeTextPane();
    const std::string text = pane->Text();
    const int revision = pane->document()->revision();
    const auto start = static_cast<std::size_t>(pane->SelStart());
    const auto end = static_cast<std::size_t>(pane->selEnd());
    const bool whole = start == end;
    const auto lines = wrapped(text, whole ? 0 : start, whole ? text.size() : end - start, reflow);
    if (!pane || !lines)
        return;
    // A tool window beside the frame may write while the frame waits.
    if (pane->document()->revision() != revision)
        return sayInStatusBar(QStringLiteral("The lines weren't wrapped: the text has changed meanwhile."));
    const std::string_view old = std::string_view(text).substr(lines->begin, lines->length);
    if (old == lines->text)
        return;
    const auto moved = [&](std::size_t offset) {
        if (offset > lines->begin + lines->length)
            return offset - lines->length + lines->text.size();
        return offset < lines->begin ? offset
                                     : lines->begin + placeInWrapped(old, offset - lines->begin, lines->text);
    };
    std::string after = text;
    pane->replaceText(after.replace(lines->begin, lines->length, lines->text));
    pane->setSelStart(static_cast<qsizetype>(moved(start)));
    pane->setSelLength(static_cast<qsizetype>(moved(end) - moved(start)));
    updateStatus();
}

void EditTextFrm::MnuFerramentasWrapAtWords() {
    wrapLines(false);
}

void EditTextFrm::MnuFerramentasWrapReflow() {
    wrapLines(true);
}

} // namespace zolt
