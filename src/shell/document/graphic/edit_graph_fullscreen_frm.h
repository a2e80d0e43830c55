#pragma once

#include "shell/document/fullscreen_frm.h"
#include "shell/document/fullscreen_leave_frm.h"

namespace zolt {

/// The graphical edition's document on the whole screen.
class EditGraphFullscreenFrm : public FullscreenFrm {
    Q_OBJECT

public:
    explicit EditGraphFullscreenFrm(QWidget *owner);

protected:
    void take(const Pane &document, Pane &pane) override;
    void giveBack(const Pane &pane, Pane &document) override;
    void copyTypedLook(const Pane &from, Pane &to) override;
    FullscreenLeaveFrm &loadLeaveWindow() override;
};

/// Leaves it.
class EditGraphFullscreenLeaveFrm : public FullscreenLeaveFrm {
    Q_OBJECT

public:
    using FullscreenLeaveFrm::FullscreenLeaveFrm;
};

} // namespace zolt
