#pragma once

#include "images/dot_surface.h"
#include "shell/pictures/insert_frm.h"

namespace zolt {

/// Inserts an ASCII GROB, turned into image text.
class EditTextInsertGrobFrm : public InsertFrm {
    Q_OBJECT

public:
    explicit EditTextInsertGrobFrm(QWidget *owner);

protected:
    void clearPicture() override;
    bool openFile(const std::string &path) override;
    std::optional<std::string> imageText() override;

private:
    DotSurface m_dots;
    QGroupBox *Frame1;
    SurfaceView *Picture1;
};

} // namespace zolt
