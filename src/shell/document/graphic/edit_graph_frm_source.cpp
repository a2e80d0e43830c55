// The ways of the graphical document to the calculator and to the textual edition.

#include "graphic/rich_text_builder.h"
#include "platform/embedded_picture.h"
#include "platform/rich_text_box.h"
#include "shell/base/send_question.h"
#include "shell/base/shared_values.h"
#include "shell/document/graphic/edit_graph_frm.h"
#include "shell/frame/mdi_frm.h"

#include <QElapsedTimer>
#include <QPointer>
#include <utility>
#include <vector>

namespace zolt {

namespace {

/// The rich text, taken in stretches.
class RichSnapshot : public SourceSnapshot {
public:
    explicit RichSnapshot(RichTextBox &pane) : m_pane(&pane) {}

    bool takeMore() override {
        QElapsedTimer clock;
        clock.start();
        while (!isWhole() && clock.elapsed() < kSlice) {
            m_stretches.push_back(m_pane->richText(m_taken, m_taken + kStretch));
            m_taken += kStretch;
        }
        return !isWhole();
    }

    std::optional<PlacedSource> source(const Progress &progress) override {
        RichTextBuilder whole;
        for (RichText &stretch : m_stretches)
            whole.append(std::exchange(stretch, {}));
        auto source =
            compilePlacedSource(whole.text(), dotsForSource,
                                {progress, progress, [&](std::size_t) { return goOn(progress, 0, 1); }});
        if (source)
            source->source = withStyleMarks(std::move(source->source));
        return source;
    }

private:
    static constexpr int kSlice = 4;      // in milliseconds
    static constexpr int kStretch = 4096; // positions

    /// Nothing is left to take of a pane that has gone.
    bool isWhole() const { return !m_pane || m_taken >= m_pane->positionCount(); }

    QPointer<RichTextBox> m_pane;
    int m_taken = 0;
    std::vector<RichText> m_stretches;
};

} // namespace

std::unique_ptr<SourceSnapshot> EditGraphFrm::sourceSnapshot() const {
    return std::make_unique<RichSnapshot>(activeRichPane());
}

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
