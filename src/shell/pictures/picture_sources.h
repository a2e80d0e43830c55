#pragma once

#include "core/progress.h"
#include "images/dot_surface.h"

#include <QImage>
#include <QMessageBox>
#include <QString>
#include <string>

class QLabel;
class QRectF;
class QWidget;

namespace zolt {

class SurfaceView;

// What the windows share that take a picture from a file.

/// What a message box has to say; nothing without words.
struct Notice {
    QString words;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
};

/// A picture as its file gave it.
struct OpenedPicture {
    /// A PC picture in its colours; null for the other forms.
    QImage image;
    /// The dots of a GROB or an image text; none for a PC picture.
    DotSurface dots;
    /// The text of a GROB or image file, its lines parted by CR LF.
    std::string text;
    /// A GROB's size, as the frame around its picture shows it.
    QString caption;
    /// Why there is no picture, or what to know of the one there is.
    Notice notice;

    bool isEmpty() const { return image.isNull() && dots.isEmpty(); }
};

/// The readers of the three forms. `path` holds the bytes that the file system uses.
/// A file that gives no picture leaves all but `notice` empty, and `notice` too where
/// it can't be read or holds nothing. `progress` counts the characters of a text; a
/// stop gives the dots drawn so far.
OpenedPicture openPcPicture(const std::string &path, const Progress &progress);
OpenedPicture openGrob(const std::string &path, const Progress &progress);
OpenedPicture openZoltImage(const std::string &path, const Progress &progress);

/// Shows a notice in a message box of `owner`, if there is something to say.
void sayNotice(QWidget *owner, const Notice &notice);

/// Shows the whole of a picture stretched into `target` on a surface of `width` by
/// `height` dots, which become the size in work. All in dots.
void showStretched(SurfaceView &surface, const QImage &picture, int width, int height, const QRectF &target);

/// A hidden label for pictures without an exactly black pixel: it says that no dot of
/// theirs would show.
QLabel *newNothingShows();

} // namespace zolt
