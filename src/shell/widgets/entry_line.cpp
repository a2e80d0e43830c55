#include "shell/widgets/entry_line.h"

#include "core/codes.h"

#include <QFontMetrics>
#include <QPainter>

namespace zolt {

namespace {

/// In pixels, on both sides; that of the previews' text.
constexpr int kMargin = 2;

} // namespace

int EntryLine::widthOfLine(const QFont &font) {
    return QFontMetrics(font).horizontalAdvance(QString(kColumns, u'0')) + 2 * kMargin;
}

void EntryLine::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const {
    const bool selected = option.state & QStyle::State_Selected;
    if (selected)
        painter->fillRect(option.rect, option.palette.highlight());
    painter->setFont(option.font);
    painter->setPen(option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
    painter->drawText(option.rect.adjusted(kMargin, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                      index.data().toString());
}

} // namespace zolt
