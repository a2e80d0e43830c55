#include "shell/preview_compilation.h"

#include "platform/rich_text_box.h"
#include "shell/long_work.h"
#include "shell/mdi_frm.h"
#include "shell/shared_values.h"
#include "shell/wait_frm.h"

#include <QTextDocument>

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

} // namespace

bool compileInto(RichTextBox &box, PreviewFlavour flavour) {
    loaded<MDIFrm>()->setEnabled(false);
    WaitFrm &wait = load<WaitFrm>(loaded<MDIFrm>());
    wait.setTask(flavour == PreviewFlavour::Hp48 ? QStringLiteral("Compilig preview...")
                                                 : QStringLiteral("Compiling preview..."));
    const std::string text = shared::TextoPrevisualizar;
    const Preview preview = compilePreview(text, flavour, wait.progress());
    const auto cancelled = [] { return shared::CancelarOperação == 1; };
    if (!preview.cancelled && box.setRichText(preview.text, livelyProgress({}, cancelled))) {
        box.document()->setDocumentMargin(2);
        box.setSelStart(text.size() <= kTooShort ? 1 : 0);
        box.setReadOnly(true);
        keepEntries(preview.entries);
    }
    wait.finish();
    return !cancelled();
}

void goToEntry(RichTextBox &box, int index, int length) {
    const int line = shared::LinhasDasEntradas[static_cast<std::size_t>(index)];
    box.setSelStart(static_cast<qsizetype>(endOfLine(box.Text(), line)));
    box.setSelLength(length);
    box.ensureCursorVisible();
}

} // namespace zolt
