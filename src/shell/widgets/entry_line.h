#pragma once

#include <QStyledItemDelegate>

namespace zolt {

/// Draws a line of a list of menu entries: the whole line, whatever the width. The
/// mark of a shortened text would be a character of the calculator's set.
class EntryLine : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// The width in pixels that a full line of the calculator takes in a list.
    static int widthOfLine(const QFont &font);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
};

} // namespace zolt
