#pragma once

#include "shell/pictures/text_insert_frm.h"

class QLabel;

namespace zolt {

class SizeBoxes;

/// Inserts a PC picture, stretched to the size in the boxes: its black pixels
/// become dots.
class EditTextInsertImageFrm : public TextInsertFrm {
    Q_OBJECT

public:
    explicit EditTextInsertImageFrm(QWidget *owner);

public slots:
    /// Shows what the image text looks like on the calculator.
    void preview();
    /// At the size in the boxes.
    void RefreshPicture() override;

protected:
    void pictureChanged() override;
    DotSurface dots() const override;

private:
    SurfaceView *m_view;
    QGroupBox *m_viewFrame;
    SizeBoxes *m_size;
    QLabel *m_nothingShows;
};

} // namespace zolt
