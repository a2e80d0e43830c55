#pragma once

#include "core/progress.h"
#include "core/settings.h"
#include "shell/base/dialog_frm.h"
#include "shell/base/file_kinds.h"
#include "shell/base/tool_frm.h"
#include "shell/pictures/picture_sources.h"

#include <functional>
#include <string>

class QGridLayout;
class QGroupBox;
class QProgressBar;
class QPushButton;
class QVBoxLayout;

namespace zolt {

class TextPane;

/// Where an insert window's pictures come from, and what it is called for that.
struct InsertSource {
    FileKind kind;
    OpenedPicture (*open)(const std::string &path, const Progress &progress);
    const char *filter;
    DialogFrm::Client dialog;
    const char *title;
    /// Stands before the file's title in the window's.
    const char *openedTitle;
    /// The frame around the picture, by name and caption.
    const char *frame;
    const char *frameCaption;
};

extern const InsertSource kInsertPcPicture;
extern const InsertSource kInsertGrob;
extern const InsertSource kInsertZoltImage;

/// What the insert windows of both editions share: the Open dialog that comes before
/// the window is first drawn, the source and its picture in a frame, and the going
/// with the document. An heir draws the surface and has the buttons that insert.
class InsertFrm : public ToolFrm {
    Q_OBJECT

public:
    /// `folder` is the setting that holds the folder of the last file.
    InsertFrm(const InsertSource &source, std::string Settings::*folder, QWidget *owner);

    /// What comes before the window is first drawn: the Open dialog, or the file that it
    /// would give.
    void begin(const std::string &path = {});

public slots:
    /// AbrirImagem() after a reading that was stopped, or a window that was closed.
    void openPicture();
    /// Asks for a file and shows its picture. Cancel leaves what stood there; of a file
    /// that can't be shown, and of the one before it, nothing stays.
    void AbrirImagem();
    /// Draws the picture anew on the surface; an empty one if there is none.
    virtual void RefreshPicture() = 0;

protected:
    /// Comes before the Open dialog of a new window.
    virtual void beginning() {}
    /// Another picture stands in m_picture, or none: shows it.
    virtual void pictureChanged() { RefreshPicture(); }

    void closing() override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    /// A file of the window's own kind that is dropped here is shown.
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

    QPushButton *addButton(const char *name, const QString &caption, const std::function<void()> &act);
    /// Shows `step` of `total` in the progress bar and lets Stop and Close work.
    Progress progress() const;

    /// Below the frame of the picture, row by row.
    QGridLayout *m_grid;
    SurfaceView *m_surface;
    QProgressBar *m_bar;
    /// The text of the picture, hidden: as its file gave it, or as it was last read.
    TextPane *m_text;
    OpenedPicture m_picture;

private:
    /// The same as AbrirImagem() with a file in the place of the dialog.
    void openFile(const std::string &path);
    void take(OpenedPicture picture);

    const InsertSource &m_source;
    std::string Settings::*m_folder;
    QGroupBox *m_frame;
    QVBoxLayout *m_buttons;
    bool m_opening = false;
};

} // namespace zolt
