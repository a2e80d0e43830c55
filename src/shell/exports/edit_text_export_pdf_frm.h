#pragma once

#include "export/pdf_writer.h"
#include "shell/base/tool_frm.h"

class QComboBox;
class QFormLayout;
class QLineEdit;
class QPushButton;

namespace zolt {

/// Makes a PDF file of the text edition's document, by way of a text file in the
/// program's folder.
class EditTextExportPDFFrm : public ToolFrm {
    Q_OBJECT

public:
    explicit EditTextExportPDFFrm(QWidget *owner);

public slots:
    /// Asks for a file and exports to it.
    void save();

protected:
    void showEvent(QShowEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QLineEdit *addText(QFormLayout *form, const char *name, const char *labelName, const char *caption);
    QComboBox *addChoice(QFormLayout *form, const char *name, const char *labelName, const char *caption,
                         const QStringList &values, int start);
    QLineEdit *newTextBox(const char *name);

    /// Writes the document to FicheiroTemporário. A failure is left to the export,
    /// which then misses its input.
    void FicheiroGuardarTemporário();
    PdfParameters parameters() const;
    /// Writes the file and tells what went wrong. False if there is none to show, or no
    /// window any more.
    bool convert();
    void offerToOpen();

    std::string FicheiroTemporário;
    QWidget *m_fields;
    QLineEdit *txtTitle;
    QLineEdit *txtSubject;
    QLineEdit *txtAuthor;
    QLineEdit *txtKeywords;
    QLineEdit *txtCreator;
    QLineEdit *txtFilename;
    QLineEdit *txtOutputFile;
    QComboBox *cmbFont;
    QComboBox *cmbFontSize;
    QComboBox *cmbRotation;
    QComboBox *cmbPageSize;
    QPushButton *btnConvert;
};

} // namespace zolt
