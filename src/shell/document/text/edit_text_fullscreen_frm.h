#pragma once

#include "shell/document/fullscreen_frm.h"
#include "shell/document/fullscreen_leave_frm.h"

namespace zolt {

/// The text edition's document on the whole screen, in the calculator's font.
class EditTextFullscreenFrm : public FullscreenFrm {
    Q_OBJECT

public:
    explicit EditTextFullscreenFrm(QWidget *owner);

protected:
    void take(const Pane &document, Pane &pane) override;
    void giveBack(const Pane &pane, Pane &document) override;
    FullscreenLeaveFrm &loadLeaveWindow() override;
};

/// Leaves it.
class EditTextFullscreenLeaveFrm : public FullscreenLeaveFrm {
    Q_OBJECT

public:
    using FullscreenLeaveFrm::FullscreenLeaveFrm;
};

} // namespace zolt
