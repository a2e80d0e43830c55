#pragma once

#include "shell/pictures/insert_frm.h"

namespace zolt {

/// The insert windows of the graphical edition: whatever the picture's size, its document
/// gets a bitmap of the calculator's screen with the whole of it, in its colours. The
/// edition's commands stay within reach.
class GraphInsertFrm : public InsertFrm {
    Q_OBJECT

public:
    GraphInsertFrm(const InsertSource &source, std::string Settings::*folder, QWidget *owner);

public slots:
    /// Replaces the selection of the active pane by the bitmap, white without a picture,
    /// gives the pane the focus and stays.
    void insert();
    void RefreshPicture() override;
};

} // namespace zolt
