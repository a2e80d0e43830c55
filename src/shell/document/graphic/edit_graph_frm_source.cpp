// The ways of the graphical document to the calculator and to the textual edition.

#include "platform/rich_text_box.h"
#include "shell/base/send_question.h"
#include "shell/base/shared_values.h"
#include "shell/document/graphic/edit_graph_frm.h"
#include "shell/frame/mdi_frm.h"

namespace zolt {

void EditGraphFrm::compile(const std::string &rtf, std::int16_t destination) {
    shared::TipoDeCompilação = 1;
    shared::DestinoDaCompilação = destination;
    shared::RtfACompilar = rtf;
    frame().MostrarEditGraphPreviewFrm();
}

void EditGraphFrm::MnuVerPrévisualizar() {
    compile(activeRichPane().TextRTF(), shared::ToWindow);
}

void EditGraphFrm::MnuVerPrévisualizarSelecçao() {
    say(activePane().hasSelection() ? QString() : QStringLiteral("Nothing is selected."));
    compile(activeRichPane().SelRTF(), shared::ToWindow);
}

void EditGraphFrm::MnuFicheiroGuardaremformatoHP() {
    compile(activeRichPane().TextRTF(), shared::ToHpFile);
}

void EditGraphFrm::MnuFicheiroEnviarparaEdicaotextual() {
    if (mayLoseFormat(this, "textual"))
        EnviarParaEdiçãoTextual();
}

void EditGraphFrm::EnviarParaEdiçãoTextual() {
    frame().send(Road::GraphicalToTextual);
}

void EditGraphFrm::EnviarCódigoFonteParaEdiçãoTextual() {
    compile(activeRichPane().TextRTF(), shared::ToTextualEdition);
}

} // namespace zolt
