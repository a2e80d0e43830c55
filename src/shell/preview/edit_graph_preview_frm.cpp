#include "shell/preview/edit_graph_preview_frm.h"

#include "core/codes.h"
#include "core/file.h"
#include "graphic/rich_text_builder.h"
#include "graphic/rtf_reader.h"
#include "hp48/hp_file.h"
#include "platform/embedded_picture.h"
#include "platform/rich_text_box.h"
#include "shell/base/dialog_frm.h"
#include "shell/base/frame.h"
#include "shell/base/long_work.h"
#include "shell/base/shared_values.h"
#include "shell/base/status_line.h"
#include "shell/base/windows.h"
#include "shell/widgets/command_button.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QScreen>
#include <QVBoxLayout>
#include <utility>

namespace zolt {

namespace {

/// The source-code view, in twips.
constexpr int kSourceWidth = 8000;
constexpr int kSourceHeight = 5000;
/// The views of the choice and of the progress are as wide as the longest percentage
/// needs, so that they don't tremble, in pixels.
constexpr int kProgressWidth = 260;

QLabel *newLabel(const char *name, const char *text) {
    auto *label = new QLabel(QString::fromUtf8(text));
    label->setObjectName(QString::fromUtf8(name));
    return label;
}

void showPercent(QLabel *label, std::size_t step, std::size_t total) {
    label->setText(QStringLiteral("%1%").arg(total ? step * 100 / total : 100));
}

} // namespace

EditGraphPreviewFrm::EditGraphPreviewFrm(QWidget *owner)
    : ToolFrm(QStringLiteral("Format"), DisablesTheFrame, owner),
      Frame2(buildChoice()),
      Frame3(buildProgress()),
      Text3(new RichTextBox) {
    Text3->setObjectName(QStringLiteral("Text3"));
    Text3->setReadOnly(true);
    auto *column = new QVBoxLayout(this);
    for (QWidget *view : std::initializer_list<QWidget *>{Frame2, Frame3, Text3})
        column->addWidget(view);
    shared::CancelarOperação = 0;
    m_style.setClient(this);
    m_style.setToolWindow(true);
    m_style.setSizable(false);
    showView(Frame2);
}

QGroupBox *EditGraphPreviewFrm::buildChoice() {
    auto *choice = new QGroupBox;
    choice->setObjectName(QStringLiteral("Frame2"));
    auto *column = new QVBoxLayout(choice);
    int number = 0;
    for (const char *caption : {"Normal", "With partial optimization", "With total optimization"}) {
        auto *option = new QRadioButton(QString::fromUtf8(caption));
        option->setObjectName(QStringLiteral("Option%1").arg(++number));
        option->setChecked(number == 1);
        column->addWidget(option);
    }
    QPushButton *ok = newButton(this, "Command1", QStringLiteral("OK"), &EditGraphPreviewFrm::compile);
    ok->setDefault(true);
    column->addWidget(ok, 0, Qt::AlignCenter);
    return choice;
}

QWidget *EditGraphPreviewFrm::buildProgress() {
    auto *progress = new QWidget;
    progress->setObjectName(QStringLiteral("Frame3"));
    progress->setMinimumWidth(kProgressWidth);
    Label3 = newLabel("Label3", "0%");
    Label4 = newLabel("Label4", "Total:");
    Label5 = newLabel("Label5", "Images:");
    Label6 = newLabel("Label6", "0%");
    Label7 = newLabel("Label7", "(Searching ...)");
    Label8 = newLabel("Label8", "Format:");
    auto *grid = new QGridLayout(progress);
    grid->addWidget(Label4, 0, 0);
    grid->addWidget(Label3, 0, 1);
    grid->addWidget(Label5, 1, 0);
    grid->addWidget(Label8, 1, 0);
    grid->addWidget(Label6, 1, 1);
    grid->addWidget(Label7, 1, 2);
    grid->addWidget(newButton(this, "Command3", QStringLiteral("Cancel"), &EditGraphPreviewFrm::cancel), 2, 0,
                    1, 3, Qt::AlignCenter);
    grid->setColumnStretch(2, 1);
    return progress;
}

void EditGraphPreviewFrm::showView(QWidget *view) {
    for (QWidget *each : std::initializer_list<QWidget *>{Frame2, Frame3, Text3})
        each->setVisible(each == view);
}

void EditGraphPreviewFrm::showProgressView() {
    setWindowTitle(QStringLiteral("Compiling source-code..."));
    m_style.setToolWindow(true);
    m_style.setControlBox(false);
    m_style.setSizable(false);
    m_style.setTopMost(true);
    // The search for pictures comes first.
    Label8->hide();
    showView(Frame3);
    frameWindow()->setEnabled(false);
    QCoreApplication::processEvents();
}

bool EditGraphPreviewFrm::stopped() const {
    return shared::CancelarOperação == 1 || loaded<EditGraphPreviewFrm>() != this;
}

Progress EditGraphPreviewFrm::quietProgress() {
    return livelyProgress({}, [this] { return stopped(); });
}

SourceProgress EditGraphPreviewFrm::progress() {
    const auto isStopped = [this] { return stopped(); };
    const auto percentIn = [isStopped](QLabel *label) {
        return livelyProgress(
            [label](std::size_t step, std::size_t total) { showPercent(label, step, total); }, isStopped);
    };
    SourceProgress progress;
    progress.styles = percentIn(Label6);
    progress.text = [this, total = percentIn(Label3)](std::size_t step, std::size_t length) {
        if (!Label8->isHidden())
            showStep(Label5);
        return total(step, length);
    };
    progress.image = [this, turn = quietProgress()](std::size_t number) {
        showStep(Label5);
        Label5->setText(QStringLiteral("Image %1:").arg(number));
        return turn(0, 0);
    };
    progress.dots = percentIn(Label6);
    progress.finish = [this, isStopped] {
        for (QLabel *label : {Label3, Label4, Label6})
            label->hide();
        showStep(Label5);
        Label5->setText(QStringLiteral("     Optimizing..."));
        QCoreApplication::processEvents();
        return !isStopped();
    };
    return progress;
}

void EditGraphPreviewFrm::showStep(QLabel *name) {
    for (QLabel *each : {Label5, Label8})
        each->setVisible(each == name);
    Label7->hide();
    Label6->setText(QStringLiteral("0%"));
}

void EditGraphPreviewFrm::compile() {
    if (m_working)
        return;
    for (const int number : {1, 2, 3})
        if (Frame2->findChild<QRadioButton *>(QStringLiteral("Option%1").arg(number))->isChecked())
            shared::TipoDeCompilação = static_cast<std::int16_t>(number);
    m_working = true;
    const SourceProgress shown = progress(); // keeps this window while it lives
    showProgressView();
    if (auto source = sourceOf(shared::RtfACompilar, shown)) {
        m_source = std::move(*source);
        handOn();
    }
    m_working = false;
    // The next compiler of any kind begins afresh.
    const bool cancelled = std::exchange(shared::CancelarOperação, std::int16_t{0}) == 1;
    if (cancelled && loaded<EditGraphPreviewFrm>() == this)
        close();
}

std::optional<std::string> EditGraphPreviewFrm::sourceOf(const std::string &rtf,
                                                         const SourceProgress &progress) {
    const RichText text = richTextFromRtf(rtf, quietProgress());
    if (stopped())
        return std::nullopt;
    showStep(Label8);
    auto source = compileSource(text, SourceKind{shared::TipoDeCompilação}, dotsForSource, progress);
    return stopped() ? std::nullopt : source;
}

void EditGraphPreviewFrm::handOn() {
    switch (shared::DestinoDaCompilação) {
    case shared::ToHpFile:
        m_style.setTopMost(false);
        FicheiroGuardarComo();
        close();
        break;
    case shared::ToTextualEdition:
        shared::TextoEnviado = withStyleMarks(std::move(m_source));
        // The frame is enabled again before the new document comes.
        close();
        mainFrame()->send(Road::SourceToTextual);
        break;
    default:
        showSource();
    }
}

void EditGraphPreviewFrm::showSource() {
    const CharFormat plain{.halfPoints = 20};
    if (!Text3->setRichText(richTextFromPlainText(m_source, plain), quietProgress()))
        return;
    setWindowTitle(QStringLiteral("Source-code"));
    layout()->setContentsMargins(0, 0, 0, 0);
    showView(Text3);
    m_style.setToolWindow(false);
    m_style.setControlBox(true);
    m_style.setTopMost(false);
    m_style.setSizable(true);
    resize(pixels(kSourceWidth), pixels(kSourceHeight));
    move(screen()->availableGeometry().center() - rect().center());
    Text3->setFocus();
}

void EditGraphPreviewFrm::FicheiroGuardarComo() {
    CommonDialog &dialog = commonDialog(DialogFrm::GraphPreview);
    dialog.DialogTitle = QStringLiteral("Save As HP file");
    dialog.Filter = QStringLiteral("All files (*.*)|*.*|");
    dialog.FilterIndex = 2;
    dialog.InitDir = shared::settings.DefltDir;
    dialog.Flags = kOverwritePrompt;
    if (dialog.ShowSave(this) != kDialogDone)
        return;
    savedOrSaid(dialog.FileName, writeFile(dialog.FileName, hpFile(withStyleMarks(m_source))));
    shared::GuardarCancelado = 0;
}

void EditGraphPreviewFrm::cancel() {
    shared::CancelarOperação = 1;
}

} // namespace zolt
