#pragma once

#include "images/dot_surface.h"
#include "shell/pictures/insert_frm.h"

namespace zolt {

/// Inserts a stored image text as it stands.
class EditTextInsertVeldaFrm : public InsertFrm {
    Q_OBJECT

public:
    explicit EditTextInsertVeldaFrm(QWidget *owner);

protected:
    void clearPicture() override;
    bool openFile(const std::string &path) override;
    std::optional<std::string> imageText() override;

private:
    SurfaceView *Picture1;
};

} // namespace zolt
