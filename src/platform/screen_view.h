#pragma once

#include "hp48/preview_compiler.h"

#include <QAbstractScrollArea>

namespace zolt {

/// The calculator's screen with a compiled document on it, black on white, as a view that
/// scrolls. Dots are squares of whole pixels, as large as 33 columns in the view's width
/// allow. The line of a mark stands on a tinted ground.
class ScreenView : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit ScreenView(QWidget *parent = nullptr);

    /// Shows another document, from where the old one was scrolled to.
    void setScreen(CompiledScreen screen);
    const CompiledScreen &screen() const { return m_screen; }
    /// Puts the mark on the line of a character of the screen's text, from 0, and scrolls
    /// it into view.
    void mark(std::size_t character);

    /// The dots that show now, and the screen's dots at their top left.
    QRect shownDots() const;
    /// Where the top left corner of a dot stands in the viewport, in pixels of the window.
    QPoint pointOfDot(QPoint dot) const;

    QSize sizeHint() const override;

signals:
    /// A character of the screen's text, from 0, or the end of its line, was pressed.
    void pressed(qsizetype character);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    bool event(QEvent *event) override;

private:
    /// The side of a dot, in pixels of the window.
    qreal dotSide() const;
    void fitBars();
    const ScreenLine *markedLine() const;

    CompiledScreen m_screen;
    std::size_t m_mark = 0;
    QSize m_dots; // of the whole screen
};

} // namespace zolt
