// The text edition's previews, of the whole document and of the selection.

#include "platform/pane.h"
#include "shell/base/shared_values.h"
#include "shell/document/text/edit_text_frm.h"
#include "shell/frame/mdi_frm.h"

#include <functional>
#include <utility>

namespace zolt {

namespace {

/// The document is the calculator's text, and copied in no time.
class TextSnapshot : public SourceSnapshot {
public:
    explicit TextSnapshot(std::function<std::string()> text) : m_text(std::move(text)) {}

    bool takeMore() override { return false; }
    std::optional<PlacedSource> source(const Progress &) override { return PlacedSource{m_text(), {}}; }

private:
    std::function<std::string()> m_text;
};

} // namespace

std::unique_ptr<SourceSnapshot> EditTextFrm::sourceSnapshot() const {
    return std::make_unique<TextSnapshot>(storedLater(activePane()));
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
