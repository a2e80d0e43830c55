#pragma once

#include "core/progress.h"
#include "core/settings.h"
#include "shell/base/dialog_frm.h"
#include "shell/base/tool_frm.h"

#include <optional>
#include <string>

class QGridLayout;
class QGroupBox;
class QProgressBar;
class QPushButton;
class QVBoxLayout;

namespace zolt {

class DotSurface;
class SurfaceView;
class TextPane;

/// What the text edition's insert windows share: the Open dialog that comes before
/// the window is first drawn, the commands that are out of reach while it stands,
/// and the replacing of the selection by an image text. The window goes with its
/// document.
class InsertFrm : public ToolFrm {
    Q_OBJECT

public:
    /// What tells one of these windows from another.
    struct Form {
        const char *caption;
        /// Stands before the file's title in the caption.
        const char *openedCaption;
        DialogFrm::Client dialog;
        /// The setting that holds the folder of the last file.
        std::string Settings::*folder;
        const char *filter;
    };

    InsertFrm(const Form &form, QWidget *owner);

    /// Puts the text edition's commands out of reach and shows the Open dialog.
    void begin();

public slots:
    /// Asks for a file and shows its picture. Cancel leaves what stood there; of a file
    /// that can't be shown, and of the one before it, nothing stays.
    void AbrirImagem();
    /// Insert: replaces the selection of the active pane, and stays.
    void Command2_Click();
    /// Close.
    void Command3_Click();
    /// Stop.
    void Command4_Click();

protected:
    /// Takes away what is shown of a file.
    virtual void clearPicture() = 0;
    /// Reads a file and shows it. False if it can't be shown; nothing has changed then.
    virtual bool openFile(const std::string &path) = 0;
    /// The image text to insert; nothing if the reading was stopped.
    virtual std::optional<std::string> imageText() = 0;

    void closing() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

    QPushButton *addButton(const char *name, const QString &caption);
    /// Shows `step` of `total` in ProgressBar1 and lets Stop and Close work.
    Progress progress() const;
    /// Reads a surface into image text with progress; nothing if stopped.
    std::optional<std::string> readSurface(const DotSurface &surface);

    QGridLayout *m_grid;
    TextPane *Text1;
    QProgressBar *ProgressBar1;

private:
    void setEditionEnabled(bool enabled);

    Form m_form;
    QVBoxLayout *m_buttons;
};

} // namespace zolt
