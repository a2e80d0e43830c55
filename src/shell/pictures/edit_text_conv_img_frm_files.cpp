// The conversion tool at work: sources, preview and targets.

#include "core/document.h"
#include "core/file.h"
#include "images/bitmap_file.h"
#include "images/gif_file.h"
#include "images/grob.h"
#include "images/image_text.h"
#include "platform/desktop.h"
#include "platform/message_box.h"
#include "platform/pictures.h"
#include "platform/surface_view.h"
#include "platform/text_pane.h"
#include "shell/base/dialog_frm.h"
#include "shell/base/long_work.h"
#include "shell/base/shared_values.h"
#include "shell/base/status_line.h"
#include "shell/pictures/edit_text_conv_img_frm.h"
#include "shell/pictures/picture_filters.h"
#include "shell/pictures/picture_sources.h"
#include "shell/widgets/size_boxes.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QRadioButton>

namespace zolt {

namespace {

/// The kinds of conversion, by their values.
enum Kind { PictureToZolt = 1, ZoltToPicture, PictureToGrob, GrobToPicture, GrobToZolt, ZoltToGrob };

bool isGrobSource(int kind) {
    return kind == GrobToPicture || kind == GrobToZolt;
}

/// Bits to the pixel of the target dialog's file types, from the first; then GIF.
constexpr std::array kBitmapDepths{1, 4, 8, 24};
constexpr std::size_t kGif = kBitmapDepths.size();

/// The file type that was chosen, from 0. With "All files", the one behind them, the
/// name's extension says it: GIF, or else the first.
std::size_t targetType(const CommonDialog &dialog) {
    const auto type = static_cast<std::size_t>(dialog.FilterIndex - 1);
    if (type <= kGif)
        return type;
    return fromFileName(dialog.FileTitle()).endsWith(QStringLiteral(".gif"), Qt::CaseInsensitive) ? kGif : 0;
}

} // namespace

int EditTextConvImgFrm::chosenKind() const {
    for (std::size_t i = 0; i < m_options.size(); ++i)
        if (m_options[i]->isChecked())
            return static_cast<int>(i) + 1;
    return PictureToZolt;
}

bool EditTextConvImgFrm::sourceIsPicture() const {
    return shared::TipoDeConversão == PictureToZolt || shared::TipoDeConversão == PictureToGrob;
}

void EditTextConvImgFrm::Command1_Click() {
    close();
}

void EditTextConvImgFrm::closing() {
    shared::PararLeitura = 1;
}

void EditTextConvImgFrm::Command2_Click() {
    shared::TipoAnterior = shared::TipoDeConversão;
    shared::TipoDeConversão = static_cast<std::int16_t>(chosenKind());
    sourceIsPicture() ? AbrirImagemPC() : AbrirImagemHP();
    ImagemOrigem = commonDialog(DialogFrm::ImageConversion).FileName;
    Text4->setText(fromFileName(ImagemOrigem));
}

CommonDialog &EditTextConvImgFrm::sourceDialog(const QString &filter, int filterIndex) {
    CommonDialog &dialog = commonDialog(DialogFrm::ImageConversion);
    dialog.DialogTitle = QStringLiteral("Open");
    dialog.Filter = filter;
    dialog.FilterIndex = filterIndex;
    dialog.Flags = kFileMustExist;
    dialog.InitDir = shared::settings.DfDirCnv;
    dialog.FileName = ImagemOrigem;
    return dialog;
}

bool EditTextConvImgFrm::askForSource(CommonDialog &dialog) {
    if (dialog.ShowOpen(this) == kDialogDone)
        return true;
    shared::TipoDeConversão = shared::TipoAnterior;
    return false;
}

void EditTextConvImgFrm::AbrirImagemPC() {
    CommonDialog &dialog = sourceDialog(QString::fromUtf8(kPictureFilter), 1);
    if (!askForSource(dialog)) {
        Picture6->hide();
        return;
    }
    forgetSource();
    const LoadedPicture picture = loadPicture(dialog.FileName);
    if (!picture.ok()) {
        Picture6->hide();
        sayRefused(this, dialog.FileName, picture.reason);
        return;
    }
    m_picture = picture.image;
    m_nothingShows->setVisible(!hasBlack(m_picture));
    shared::settings.DfDirCnv = folderOf(dialog.FileName);
    VerificarSeleccionado();
    RefreshPicture();
}

void EditTextConvImgFrm::AbrirImagemHP() {
    const bool grob = isGrobSource(shared::TipoDeConversão);
    CommonDialog &dialog = sourceDialog(QString::fromUtf8(kHpImageFilter), grob ? 2 : 3);
    if (!askForSource(dialog))
        return;
    shared::settings.DfDirCnv = folderOf(dialog.FileName);
    VerificarSeleccionado();
    forgetSource();
    const std::string text = readPictureText(dialog.FileName);
    if (text.empty())
        return;
    shared::PararLeitura = 0;
    PictureOfText picture = grob ? VerGrob(text, progress()) : VerVelda(text, progress());
    ProgressBar1->reset();
    if (!picture.reason.empty())
        return sayRefused(this, dialog.FileName, picture.reason);
    if (grob)
        showGrobSize(*readGrobHeader(text));
    Text1->setText(text);
    m_dots = std::move(picture.surface);
    Picture1->showDots(m_dots);
}

void EditTextConvImgFrm::showGrobSize(const GrobHeader &header) {
    Frame3->setTitle(QStringLiteral("Preview - ") + QString::fromStdString(header.caption));
    if (header.tooWide())
        showMessage(this, QString::fromUtf8(kGrobTooWide.data()), QMessageBox::Information);
}

void EditTextConvImgFrm::forgetSource() {
    m_picture = {};
    m_dots = {};
    m_nothingShows->hide();
    Text1->setText({});
    Picture1->clear();
    Picture5->clear();
    Frame3->setTitle(QStringLiteral("Preview"));
}

void EditTextConvImgFrm::RefreshPicture() {
    const int width = Picture6->widthInDots();
    const int height = Picture6->heightInDots();
    if (width == 0 || height == 0 || m_picture.isNull())
        return;
    shared::LarguraFigura = static_cast<std::int16_t>(width);
    shared::AlturaFigura = static_cast<std::int16_t>(height);
    Picture1->showPicture(width, height, [picture = m_picture, width, height](int scale) {
        return stretchedPicture(picture, width, height, pictureTarget(width, height), scale);
    });
}

void EditTextConvImgFrm::VerificarSeleccionado() {
    Picture6->setVisible(sourceIsPicture());
}

DotSurface EditTextConvImgFrm::surfaceDots() const {
    const QSize size = Picture1->sizeInDots();
    if (!m_picture.isNull())
        return dotsOfPicture(m_picture, size.width(), size.height());
    return m_dots.isEmpty() ? DotSurface(size.width(), size.height()) : m_dots;
}

Progress EditTextConvImgFrm::progress() const {
    return readingProgress(ProgressBar1);
}

void EditTextConvImgFrm::Command7_Click() {
    if (shared::TipoDeConversão == 0)
        return;
    if (!sourceIsPicture()) {
        const DotSurface dots = surfaceDots();
        Picture5->showDots(dots);
        return;
    }
    shared::PararLeitura = 0;
    Text1->setText(LerFigura(surfaceDots(), progress()));
    Picture5->showDots(VerVelda(Text1->Text(), progress()).surface, Picture1->sizeInDots());
    ProgressBar1->reset();
    RefreshPicture();
}

void EditTextConvImgFrm::Command6_Click() {
    shared::PararLeitura = 0;
    switch (shared::TipoDeConversão) {
    case PictureToZolt:
    case GrobToZolt:
        return FicheiroGuardarVELDA();
    case PictureToGrob:
        return FicheiroGuardarGROB();
    case ZoltToGrob:
        return FicheiroGuardarGROB2();
    case ZoltToPicture:
    case GrobToPicture:
        return FicheiroGuardarBMP();
    default:
        return;
    }
}

CommonDialog &EditTextConvImgFrm::targetDialog(const QString &filter) {
    CommonDialog &dialog = commonDialog(DialogFrm::ImageConversion);
    dialog.DialogTitle = QStringLiteral("Save");
    dialog.Filter = filter;
    dialog.FilterIndex = 1;
    dialog.Flags = kOverwritePrompt | kAddExtension;
    dialog.InitDir = shared::settings.DfDirCnv;
    dialog.FileName.clear();
    return dialog;
}

void EditTextConvImgFrm::saveText(const QString &filter) {
    ProgressBar1->reset();
    if (shared::PararLeitura)
        return;
    CommonDialog &dialog = targetDialog(filter);
    if (dialog.ShowSave(this) != kDialogDone)
        return;
    writeTarget(dialog.FileName, fileFromDocument(Text1->Text()));
}

void EditTextConvImgFrm::writeTarget(const std::string &path, const std::string &bytes) {
    if (savedOrSaid(path, writeFile(path, bytes)))
        shared::settings.DfDirCnv = folderOf(path);
}

void EditTextConvImgFrm::FicheiroGuardarVELDA() {
    Text1->setText(LerFigura(surfaceDots(), progress()));
    saveText(QString::fromUtf8(kZoltImageFilter));
}

void EditTextConvImgFrm::FicheiroGuardarGROB() {
    const DotSurface dots = surfaceDots();
    Text1->setText(FiguraParaGrob(dots, grobSizeOfSurface(dots), progress()));
    saveText(QString::fromUtf8(kGrobFilter));
}

void EditTextConvImgFrm::FicheiroGuardarGROB2() {
    const std::string imageText = Text1->Text();
    const GrobSize size = grobSizeOfImageText(measureImageText(imageText));
    if (size.width < 0)
        return showMessage(this, QStringLiteral("There is no ZOLT image to convert."), QMessageBox::Warning);
    Text1->setText(FiguraParaGrob(surfaceDots(), size, progress()));
    saveText(QString::fromUtf8(kGrobFilter));
    // The image text stays the source of a further conversion.
    Text1->setText(imageText);
}

void EditTextConvImgFrm::FicheiroGuardarBMP() {
    CommonDialog &dialog = targetDialog(QString::fromUtf8(kBitmapFilter));
    if (dialog.ShowSave(this) != kDialogDone)
        return;
    const std::size_t type = targetType(dialog);
    const DotSurface dots = surfaceDots();
    const std::string bytes = type < kGif ? bitmapFile(dots, kBitmapDepths[type]) : gifFile(dots, progress());
    ProgressBar1->reset();
    if (!bytes.empty())
        writeTarget(dialog.FileName, bytes);
}

} // namespace zolt
