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

void EditTextConvImgFrm::closing() {
    shared::PararLeitura = 1;
}

void EditTextConvImgFrm::chooseSource() {
    shared::TipoAnterior = shared::TipoDeConversão;
    shared::TipoDeConversão = static_cast<std::int16_t>(chosenKind());
    sourceIsPicture() ? AbrirImagemPC() : AbrirImagemHP();
    ImagemOrigem = commonDialog(DialogFrm::ImageConversion).FileName;
    m_source->setText(fromFileName(ImagemOrigem));
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
        m_size->hide();
        return;
    }
    take({});
    OpenedPicture opened = openPcPicture(dialog.FileName, progress());
    m_size->setVisible(!opened.isEmpty());
    if (!opened.isEmpty())
        shared::settings.DfDirCnv = folderOf(dialog.FileName);
    take(std::move(opened));
}

void EditTextConvImgFrm::AbrirImagemHP() {
    const bool grob = isGrobSource(shared::TipoDeConversão);
    CommonDialog &dialog = sourceDialog(QString::fromUtf8(kHpImageFilter), grob ? 2 : 3);
    if (!askForSource(dialog))
        return;
    shared::settings.DfDirCnv = folderOf(dialog.FileName);
    VerificarSeleccionado();
    take({});
    shared::PararLeitura = 0;
    OpenedPicture opened = (grob ? openGrob : openZoltImage)(dialog.FileName, progress());
    m_bar->reset();
    take(std::move(opened));
}

void EditTextConvImgFrm::take(OpenedPicture picture) {
    m_picture = std::move(picture);
    m_text->setText(m_picture.text);
    m_view->clear();
    m_viewFrame->setTitle(m_picture.caption.isEmpty() ? QStringLiteral("Preview")
                                                      : QStringLiteral("Preview - ") + m_picture.caption);
    m_nothingShows->setVisible(!m_picture.image.isNull() && !hasBlack(m_picture.image));
    sayNotice(this, m_picture.notice);
    m_surface->showDots(m_picture.dots);
    RefreshPicture();
}

void EditTextConvImgFrm::RefreshPicture() {
    const int width = m_size->widthInDots();
    const int height = m_size->heightInDots();
    if (width > 0 && height > 0 && !m_picture.image.isNull())
        showStretched(*m_surface, m_picture.image, width, height, pictureTarget(width, height));
}

void EditTextConvImgFrm::VerificarSeleccionado() {
    m_size->setVisible(sourceIsPicture());
}

DotSurface EditTextConvImgFrm::surfaceDots() const {
    const QSize size = m_surface->sizeInDots();
    if (!m_picture.image.isNull())
        return dotsOfPicture(m_picture.image, size.width(), size.height());
    return m_picture.isEmpty() ? DotSurface(size.width(), size.height()) : m_picture.dots;
}

Progress EditTextConvImgFrm::progress() const {
    return readingProgress(m_bar);
}

void EditTextConvImgFrm::preview() {
    if (shared::TipoDeConversão == 0)
        return;
    if (!sourceIsPicture()) {
        const DotSurface dots = surfaceDots();
        m_view->showDots(dots);
        return;
    }
    shared::PararLeitura = 0;
    m_text->setText(LerFigura(surfaceDots(), progress()));
    m_view->showDots(VerVelda(m_text->Text(), progress()).surface, m_surface->sizeInDots());
    m_bar->reset();
    RefreshPicture();
}

void EditTextConvImgFrm::convert() {
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
    m_bar->reset();
    if (shared::PararLeitura)
        return;
    CommonDialog &dialog = targetDialog(filter);
    if (dialog.ShowSave(this) != kDialogDone)
        return;
    writeTarget(dialog.FileName, fileFromDocument(m_text->Text()));
}

void EditTextConvImgFrm::writeTarget(const std::string &path, const std::string &bytes) {
    if (savedOrSaid(path, writeFile(path, bytes)))
        shared::settings.DfDirCnv = folderOf(path);
}

void EditTextConvImgFrm::FicheiroGuardarVELDA() {
    m_text->setText(LerFigura(surfaceDots(), progress()));
    saveText(QString::fromUtf8(kZoltImageFilter));
}

void EditTextConvImgFrm::FicheiroGuardarGROB() {
    const DotSurface dots = surfaceDots();
    m_text->setText(FiguraParaGrob(dots, grobSizeOfSurface(dots), progress()));
    saveText(QString::fromUtf8(kGrobFilter));
}

void EditTextConvImgFrm::FicheiroGuardarGROB2() {
    const std::string imageText = m_text->Text();
    const GrobSize size = grobSizeOfImageText(measureImageText(imageText));
    if (size.width < 0)
        return showMessage(this, QStringLiteral("There is no ZOLT image to convert."), QMessageBox::Warning);
    m_text->setText(FiguraParaGrob(surfaceDots(), size, progress()));
    saveText(QString::fromUtf8(kGrobFilter));
    // The image text stays the source of a further conversion.
    m_text->setText(imageText);
}

void EditTextConvImgFrm::FicheiroGuardarBMP() {
    CommonDialog &dialog = targetDialog(QString::fromUtf8(kBitmapFilter));
    if (dialog.ShowSave(this) != kDialogDone)
        return;
    const std::size_t type = targetType(dialog);
    const DotSurface dots = surfaceDots();
    const std::string bytes = type < kGif ? bitmapFile(dots, kBitmapDepths[type]) : gifFile(dots, progress());
    m_bar->reset();
    if (!bytes.empty())
        writeTarget(dialog.FileName, bytes);
}

} // namespace zolt
