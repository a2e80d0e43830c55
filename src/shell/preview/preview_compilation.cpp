#include "shell/preview/preview_compilation.h"

#include "platform/rich_text_box.h"
#include "shell/base/frame.h"
#include "shell/base/long_work.h"
#include "shell/base/shared_values.h"
#include "shell/base/windows.h"
#include "shell/preview/wait_frm.h"

#include <QAbstractTextDocumentLayout>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QScrollBar>
#include <QTextBlock>
#include <algorithm>

namespace zolt {

namespace {

/// A text of so few characters isn't compiled.
constexpr std::size_t kTooShort = 2;

void keepEntries(const std::vector<MenuEntry> &entries) {
    shared::NúmeroDeEntradas = static_cast<int>(entries.size());
    shared::LinhasDasEntradas.clear();
    shared::TextosDasEntradas.clear();
    for (const MenuEntry &entry : entries) {
        shared::LinhasDasEntradas.push_back(entry.line);
        shared::TextosDasEntradas.push_back(entry.text);
    }
}

/// Scrolls so that the selection's line is the first one in sight, from its first
/// column on; behind the text's end there is room for that.
void scrollToTop(RichTextBox &box) {
    const QTextDocument &document = *box.document();
    const QTextCursor selection = box.textCursor();
    const QTextBlock line = document.findBlock(selection.selectionStart());
    const double top = document.documentLayout()->blockBoundingRect(line).top() - document.documentMargin();
    QScrollBar &bar = *box.verticalScrollBar();
    bar.setMaximum(std::max(bar.maximum(), static_cast<int>(top)));
    bar.setValue(static_cast<int>(top));
    box.horizontalScrollBar()->setValue(0);
}

} // namespace

bool compileInto(RichTextBox &box, PreviewFlavour flavour) {
    const QPointer<RichTextBox> target = &box;
    frameWindow()->setEnabled(false);
    const QPointer<WaitFrm> wait = &load<WaitFrm>(frameWindow());
    wait->setTask(flavour == PreviewFlavour::Hp48 ? QStringLiteral("Compilig preview...")
                                                  : QStringLiteral("Compiling preview..."));
    const std::string text = shared::TextoPrevisualizar;
    const Preview preview = compilePreview(text, flavour, wait->progress());
    const auto cancelled = [target] { return shared::CancelarOperação == 1 || !target; };
    if (!preview.cancelled && target && box.setRichText(preview.text, livelyProgress({}, cancelled))) {
        box.document()->setDocumentMargin(2);
        box.setSelStart(text.size() <= kTooShort ? 1 : 0);
        box.setReadOnly(true);
        keepEntries(preview.entries);
    }
    if (wait)
        wait->finish();
    return !cancelled();
}

void goToEntry(RichTextBox &box, int index, int length) {
    const int line = shared::LinhasDasEntradas[static_cast<std::size_t>(index)];
    box.setSelStart(static_cast<qsizetype>(endOfLine(box.Text(), line)));
    box.setSelLength(length);
    scrollToTop(box);
}

bool asksForEntries(const QEvent &event) {
    if (event.type() == QEvent::ContextMenu)
        return static_cast<const QContextMenuEvent &>(event).reason() == QContextMenuEvent::Keyboard;
    if (event.type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<const QKeyEvent &>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace zolt
