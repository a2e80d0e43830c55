#pragma once

#include "images/dot_surface.h"
#include "shell/pictures/insert_frm.h"

#include <QImage>

class QLabel;

namespace zolt {

class SizeBoxes;

/// Inserts a PC picture, stretched to the size in the boxes: its black pixels
/// become dots.
class EditTextInsertImageFrm : public InsertFrm {
    Q_OBJECT

public:
    explicit EditTextInsertImageFrm(QWidget *owner);

public slots:
    /// Preview: shows what the image text looks like on the calculator.
    void Command1_Click();
    /// Open.
    void Command5_Click();
    /// Draws the picture anew at the size in the boxes.
    void RefreshPicture();

protected:
    void clearPicture() override;
    bool openFile(const std::string &path) override;
    std::optional<std::string> imageText() override;

private:
    DotSurface dots() const;

    QImage m_picture;
    SurfaceView *Picture1;
    SurfaceView *Picture5;
    QGroupBox *Frame3;
    SizeBoxes *m_size;
    QLabel *m_nothingShows;
};

} // namespace zolt
