// The text edition's previews, of the whole document and of the selection.

#include "platform/held_text.h"
#include "platform/text_pane.h"
#include "shell/base/shared_values.h"
#include "shell/document/text/edit_text_frm.h"
#include "shell/frame/mdi_frm.h"

namespace zolt {

namespace {

/// The text as the pane holds it, which is copied in no time.
class HeldSnapshot : public SourceSnapshot {
public:
    explicit HeldSnapshot(const TextPane &pane) : m_held(pane.held()) {}

    bool takeMore() override { return false; }
    std::optional<PlacedSource> source(const Progress &) override {
        return PlacedSource{bytesOfHeldText(m_held), {}};
    }

private:
    QString m_held;
};

} // namespace

std::unique_ptr<SourceSnapshot> EditTextFrm::sourceSnapshot() const {
    return std::make_unique<HeldSnapshot>(activeTextPane());
}

void EditTextFrm::preview(const std::string &text, void (MDIFrm::*open)()) {
    shared::TextoPrevisualizar = text;
    frame().MostrarWaitFrm();
    (frame().*open)();
}

void EditTextFrm::previewSelection(void (MDIFrm::*open)()) {
    const std::string selection = activePane().SelText();
    say(selection.empty() ? QStringLiteral("Nothing is selected.") : QString());
    preview(selection, open);
}

void EditTextFrm::MnuVerPrévisualizartudoNormal() {
    shared::PrevisualizarComQuebras = 0;
    preview(activePane().Text(), &MDIFrm::MostrarEditTextPreviewNormalFrm);
}
void EditTextFrm::MnuVerPrévisualizartudoComquebrasdelinha() {
    shared::PrevisualizarComQuebras = 1;
    preview(activePane().Text(), &MDIFrm::MostrarEditTextPreviewNormalFrm);
}
void EditTextFrm::MnuVerPrévisualizartudoEstiloHP48() {
    preview(activePane().Text(), &MDIFrm::MostrarEditTextPreviewFrm);
}

void EditTextFrm::VerPrévisualizarselecçãoNormal() {
    shared::PrevisualizarComQuebras = 0;
    previewSelection(&MDIFrm::MostrarEditTextPreviewNormalFrm);
}
void EditTextFrm::VerPrévisualizarselecçãoComquebrasdelinha() {
    shared::PrevisualizarComQuebras = 1;
    previewSelection(&MDIFrm::MostrarEditTextPreviewNormalFrm);
}
void EditTextFrm::VerPrévisualizarselecçãoEstiloHP48() {
    previewSelection(&MDIFrm::MostrarEditTextPreviewFrm);
}

} // namespace zolt
