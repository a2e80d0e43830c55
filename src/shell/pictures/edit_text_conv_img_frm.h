#pragma once

#include "core/progress.h"
#include "images/dot_surface.h"
#include "shell/base/tool_frm.h"

#include <QImage>
#include <array>
#include <cstdint>

class QGroupBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QRadioButton;

namespace zolt {

class CommonDialog;
struct GrobHeader;
class SizeBoxes;
class SurfaceView;
class TextPane;

/// Turns one picture file into another, outside any document. The kind of
/// conversion in force is the one that was set when the source was chosen.
class EditTextConvImgFrm : public ToolFrm {
    Q_OBJECT

public:
    explicit EditTextConvImgFrm(QWidget *owner);

public slots:
    /// Close.
    void Command1_Click();
    /// Chooses the source.
    void Command2_Click();
    /// Convert: writes the target.
    void Command6_Click();
    /// Preview: shows the target's look.
    void Command7_Click();

    void AbrirImagemPC();
    void AbrirImagemHP();
    void RefreshPicture();
    void VerificarSeleccionado();

    void FicheiroGuardarVELDA();
    void FicheiroGuardarGROB();
    void FicheiroGuardarGROB2();
    void FicheiroGuardarBMP();

protected:
    void closing() override;

private:
    QWidget *buildKinds();
    QWidget *buildPictures();
    QWidget *buildButtons();

    int chosenKind() const;
    bool sourceIsPicture() const;
    CommonDialog &sourceDialog(const QString &filter, int filterIndex);
    CommonDialog &targetDialog(const QString &filter);
    /// Asks for a source. False on Cancel, with the kind before in force again.
    bool askForSource(CommonDialog &dialog);
    void showGrobSize(const GrobHeader &header);
    /// Takes away what is shown and kept of a source.
    void forgetSource();
    /// The dots of the source's surface, as they are converted.
    DotSurface surfaceDots() const;
    /// Asks where to write the text in Text1 and writes it.
    void saveText(const QString &filter);
    /// Writes a target and keeps its folder, or says in the status bar why it can't.
    void writeTarget(const std::string &path, const std::string &bytes);
    Progress progress() const;

    std::array<QRadioButton *, 6> m_options{};
    QLineEdit *Text4;
    TextPane *Text1;
    QGroupBox *Frame2;
    QGroupBox *Frame3;
    SurfaceView *Picture1;
    SurfaceView *Picture5;
    SizeBoxes *Picture6;
    QLabel *m_nothingShows;
    QProgressBar *ProgressBar1;

    QImage m_picture;
    DotSurface m_dots;
    std::string ImagemOrigem;
};

} // namespace zolt
