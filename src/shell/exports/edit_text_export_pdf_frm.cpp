#include "shell/exports/edit_text_export_pdf_frm.h"

#include "core/document.h"
#include "core/file.h"
#include "platform/desktop.h"
#include "platform/message_box.h"
#include "platform/text_pane.h"
#include "shell/base/dialog_frm.h"
#include "shell/base/document_in_use.h"
#include "shell/base/long_work.h"
#include "shell/base/shared_values.h"
#include "shell/base/status_line.h"
#include "shell/base/windows.h"
#include "shell/widgets/command_button.h"

#include <QComboBox>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QVBoxLayout>
#include <ctime>

namespace zolt {

namespace {

const QStringList &fontNames() {
    static const QStringList names{QStringLiteral("Courier"), QStringLiteral("Times-Roman"),
                                   QStringLiteral("Arial")};
    return names;
}

constexpr int kSizes[] = {8, 10, 12, 14, 16, 18, 20};
constexpr int kRotations[] = {0, 90, 180, 270};

/// In inches.
struct PageSize {
    const char *caption;
    double width;
    double height;
};
constexpr PageSize kPageSizes[] = {
    {"8.5\" x 11\"", 8.5, 11}, {"8.5\" x 14\"", 8.5, 14}, {"14\" x 11\"", 14, 11}};

QStringList sizeNames() {
    QStringList names;
    for (const int size : kSizes)
        names << QStringLiteral("%1pt").arg(size);
    return names;
}

QStringList rotationNames() {
    QStringList names;
    for (const int rotation : kRotations)
        names << QString::number(rotation);
    return names;
}

QStringList pageSizeNames() {
    QStringList names;
    for (const PageSize &size : kPageSizes)
        names << QString::fromUtf8(size.caption);
    return names;
}

std::tm localTime() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return local;
}

bool FileExists(const QString &path) {
    const QFileInfo file(path);
    return file.isFile() && file.size() > 0;
}

/// The file that the program was started with, if there is one of that name in
/// small letters.
QString fileOfCommandLine() {
    QString name = fromFileName(shared::commandLine).toLower();
    if (name.size() >= 2 && name.startsWith(u'"') && name.endsWith(u'"'))
        name = name.sliced(1, name.size() - 2);
    return FileExists(name) ? name : QString();
}

std::string fileName(const QLineEdit *box) {
    return QFile::encodeName(box->text()).toStdString();
}

} // namespace

EditTextExportPDFFrm::EditTextExportPDFFrm(QWidget *owner)
    : ToolFrm(QStringLiteral("Export to PDF"), DisablesTheFrame, owner),
      FicheiroTemporário(shared::programFolder + "/tmp1855"),
      m_fields(new QWidget(this)) {
    auto *form = new QFormLayout(m_fields);
    form->setContentsMargins(0, 0, 0, 0);
    cmbFont = addChoice(form, "cmbFont", "Label1", "Font:", fontNames(), 1);
    cmbFontSize = addChoice(form, "cmbFontSize", "Label2", "Size:", sizeNames(), 1);
    cmbRotation = addChoice(form, "cmbRotation", "Label3", "Rotation:", rotationNames(), 0);
    cmbPageSize = addChoice(form, "cmbPageSize", "Label4", "Page Size:", pageSizeNames(), 0);
    auto *heading = new QLabel(QStringLiteral("Document properties"));
    heading->setObjectName(QStringLiteral("Label5"));
    heading->setContentsMargins(0, 8, 0, 0);
    form->addRow(heading);
    txtTitle = addText(form, "txtTitle", "lblTitle", "Title:");
    txtSubject = addText(form, "txtSubject", "lblSubject", "Subject:");
    txtAuthor = addText(form, "txtAuthor", "lblAuthor", "Author:");
    txtKeywords = addText(form, "txtKeywords", "lblKeyword", "Keywords:");
    txtCreator = addText(form, "txtCreator", "lblCreator", "Creator:");
    txtCreator->setText(QStringLiteral("ZOLT"));
    txtFilename = newTextBox("txtFilename");
    txtOutputFile = newTextBox("txtOutputFile");
    for (QLineEdit *unseen : {txtFilename, txtOutputFile})
        unseen->hide();

    btnConvert = newButton(this, "btnConvert", QStringLiteral("Save"), &EditTextExportPDFFrm::save);
    btnConvert->setDefault(true);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(btnConvert);
    buttons->addWidget(newButton(this, "btnClose", QStringLiteral("Cancel"), &QWidget::close));
    auto *column = new QVBoxLayout(this);
    column->addWidget(m_fields);
    column->addStretch();
    column->addSpacing(8);
    column->addLayout(buttons);
    cmbFont->setFocus();
    resize(380, sizeHint().height());
}

QLineEdit *EditTextExportPDFFrm::newTextBox(const char *name) {
    auto *box = new QLineEdit(m_fields);
    box->setObjectName(QString::fromUtf8(name));
    box->installEventFilter(this);
    return box;
}

QLineEdit *EditTextExportPDFFrm::addText(QFormLayout *form, const char *name, const char *labelName,
                                         const char *caption) {
    QLineEdit *box = newTextBox(name);
    form->addRow(QString::fromUtf8(caption), box);
    form->labelForField(box)->setObjectName(QString::fromUtf8(labelName));
    return box;
}

QComboBox *EditTextExportPDFFrm::addChoice(QFormLayout *form, const char *name, const char *labelName,
                                           const char *caption, const QStringList &values, int start) {
    auto *box = new QComboBox(m_fields);
    box->setObjectName(QString::fromUtf8(name));
    box->addItems(values);
    box->setCurrentIndex(start);
    form->addRow(QString::fromUtf8(caption), box);
    form->labelForField(box)->setObjectName(QString::fromUtf8(labelName));
    return box;
}

bool EditTextExportPDFFrm::eventFilter(QObject *watched, QEvent *event) {
    // After the click that brought the focus, which would put the caret there.
    if (auto *box = qobject_cast<QLineEdit *>(watched); box && event->type() == QEvent::FocusIn)
        QMetaObject::invokeMethod(box, &QLineEdit::selectAll, Qt::QueuedConnection);
    return ToolFrm::eventFilter(watched, event);
}

void EditTextExportPDFFrm::showEvent(QShowEvent *event) {
    ToolFrm::showEvent(event);
    if (event->spontaneous())
        return;
    if (const QString named = fileOfCommandLine(); !named.isEmpty()) {
        txtFilename->setText(named);
        txtOutputFile->setText(named.chopped(std::min<qsizetype>(4, named.size())) + QStringLiteral(".pdf"));
        QMetaObject::invokeMethod(btnConvert, &QPushButton::click, Qt::QueuedConnection);
    }
}

void EditTextExportPDFFrm::FicheiroGuardarTemporário() {
    const Pane *pane = activePane();
    const std::string text = pane ? pane->Text() : std::string();
    // An older text must not be taken for this one.
    if (!writeFile(FicheiroTemporário, fileFromDocument(text)).empty())
        QFile::remove(fromFileName(FicheiroTemporário));
}

PdfParameters EditTextExportPDFFrm::parameters() const {
    const PageSize &page = kPageSizes[cmbPageSize->currentIndex()];
    return {.author = windowsBytes(txtAuthor->text()),
            .creator = windowsBytes(txtCreator->text()),
            .keywords = windowsBytes(txtKeywords->text()),
            .subject = windowsBytes(txtSubject->text()),
            .title = windowsBytes(txtTitle->text()),
            .fontName = windowsBytes(cmbFont->currentText()),
            .fontSize = kSizes[cmbFontSize->currentIndex()],
            .rotation = kRotations[cmbRotation->currentIndex()],
            .pageWidth = page.width,
            .pageHeight = page.height,
            .createdAt = localTime()};
}

bool EditTextExportPDFFrm::convert() {
    const QPointer<EditTextExportPDFFrm> self = this;
    const auto enableInput = [this](bool enabled) {
        m_fields->setEnabled(enabled);
        btnConvert->setEnabled(enabled);
    };
    enableInput(false);
    const auto closed = [self] { return !self || !self->isVisible(); };
    const std::string output = fileName(txtOutputFile);
    const PdfResult result =
        ConvertToPDF(fileName(txtFilename), output, parameters(), livelyProgress({}, closed));
    if (closed())
        return false;
    enableInput(true);
    for (const std::string &message : result.messages)
        if (self)
            showMessage(this, QString::fromLocal8Bit(message.c_str()));
    const bool written = savedOrSaid(output, result.writeError) && result.pageCount > 0;
    return written && !closed();
}

void EditTextExportPDFFrm::offerToOpen() {
    const std::string output = fileName(txtOutputFile);
    if (ask(this, QStringLiteral("Open created PDF file ?"), QMessageBox::Yes | QMessageBox::No,
            QMessageBox::Question, QStringLiteral("ZOLT"), QMessageBox::No) == QMessageBox::Yes)
        openInDesktop(output);
}

void EditTextExportPDFFrm::save() {
    FicheiroGuardarTemporário();
    txtFilename->setText(fromFileName(FicheiroTemporário));
    CommonDialog &dialog = commonDialog(DialogFrm::Pdf);
    dialog.DialogTitle = QStringLiteral("Save");
    dialog.Filter = QStringLiteral("Adobe PDF Files (*.pdf)|*.pdf|");
    dialog.Flags = kAddExtension;
    dialog.InitDir = shared::settings.DfDirPdf;
    if (dialog.ShowSave(this) != kDialogDone)
        return;
    txtOutputFile->setText(fromFileName(dialog.FileName));
    shared::settings.DfDirPdf = folderOf(dialog.FileName);

    const QString temporary = fromFileName(FicheiroTemporário);
    const QPointer<EditTextExportPDFFrm> self = this;
    if (txtFilename->text().isEmpty() || txtOutputFile->text().isEmpty())
        showMessage(this, QStringLiteral("Please specify the name of the file."));
    else if (convert() && fileOfCommandLine().isEmpty())
        offerToOpen();
    if (self && isVisible())
        close();
    QFile::remove(temporary);
}

} // namespace zolt
