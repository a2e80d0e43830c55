#pragma once

#include "shell/base/tool_frm.h"

#include <QPoint>

namespace zolt {

/// The small window before a full-screen window, its owner, that leaves it: by its button,
/// or by closing it in whatever way. Its own ground drags it too, where it has no title.
class FullscreenLeaveFrm : public ToolFrm {
    Q_OBJECT

public:
    explicit FullscreenLeaveFrm(QWidget *owner);

    /// Shows it at the right, where the text has least, at the top or, where that would
    /// hide the caret, at the bottom. `caret` and `room` are on the screen.
    void showBeside(const QRect &caret, const QRect &room);
    /// Makes way for a caret that has come under it.
    void avoid(const QRect &caret, const QRect &room);

protected:
    void closing() override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

private:
    QPoint corner(const QRect &caret, const QRect &room) const;

    QPoint m_dragged; // where in the window the mouse holds it
};

} // namespace zolt
