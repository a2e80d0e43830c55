#pragma once

#include "core/progress.h"
#include "shell/base/tool_frm.h"
#include "shell/pictures/picture_sources.h"

#include <array>
#include <cstdint>

class QGroupBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QRadioButton;

namespace zolt {

class CommonDialog;
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
    void chooseSource();
    /// Writes the target.
    void convert();
    /// Shows the target's look.
    void preview();

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
    /// Shows a source, and says what is to be known of it.
    void take(OpenedPicture picture);
    /// The dots of the source's surface, as they are converted.
    DotSurface surfaceDots() const;
    /// Asks where to write m_text and writes it.
    void saveText(const QString &filter);
    /// Writes a target and keeps its folder, or says in the status bar why it can't.
    void writeTarget(const std::string &path, const std::string &bytes);
    Progress progress() const;

    std::array<QRadioButton *, 6> m_options{};
    QLineEdit *m_source;
    /// The text of the source or of the target, hidden.
    TextPane *m_text;
    SurfaceView *m_surface;
    SurfaceView *m_view;
    QGroupBox *m_viewFrame;
    SizeBoxes *m_size;
    QLabel *m_nothingShows;
    QProgressBar *m_bar;

    OpenedPicture m_picture;
    std::string ImagemOrigem;
};

} // namespace zolt
