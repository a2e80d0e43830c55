#pragma once

#include "graphic/rich_text_builder.h"
#include "graphic/rich_text_samples.h"
#include "platform/rich_text_box.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QImage>
#include <QMimeData>
#include <QTest>
#include <string_view>

namespace zolt::test {

/// A shown box with the focus.
struct ShownBox {
    explicit ShownBox(std::string_view text = "", bool wraps = true) : box(wraps) {
        box.resize(400, 300);
        box.setText(text);
        box.show();
        box.setFocus();
        QApplication::setActiveWindow(&box);
    }
    void key(Qt::Key code, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&box, code, modifiers);
    }
    void type(const QString &text) {
        for (const QChar c : text)
            QTest::sendKeyEvent(QTest::Click, &box, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }
    void select(qsizetype start, qsizetype length) {
        box.setSelStart(start);
        box.setSelLength(length);
    }

    /// Drops as another program does; whether it was taken.
    bool drop(const QMimeData &mime, int position) {
        QTextCursor cursor(box.document());
        cursor.setPosition(position);
        const QPoint place = box.cursorRect(cursor).center();
        QDragEnterEvent enter(place, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(box.viewport(), &enter);
        QDropEvent drop(place, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(box.viewport(), &drop);
        return enter.isAccepted() && drop.isAccepted();
    }

    RichTextBox box;
};

/// Fonts in the order of their first use, as the control gives them back.
inline RichText withFontsInOrder(const RichText &text) {
    RichText result = text;
    result.fonts.clear();
    for (Paragraph &paragraph : result.paragraphs) {
        for (zolt::Run &run : paragraph.runs)
            run.format.font = result.fontIndex(text.fonts[run.format.font]);
    }
    if (result.fonts.empty())
        result.fonts = {"ZOLT"};
    return result;
}

/// "plain", "bold" in ZOLTBold and red, a picture, "end" on the next line.
inline RichText sample() {
    RichTextBuilder builder;
    const std::uint16_t bold = builder.text().fontIndex("ZOLTBold");
    builder.append("plain", {});
    builder.append("bold", {.font = bold, .halfPoints = 28, .colour = 0xFF, .italic = true});
    builder.append(samplePicture(RichPicture::Kind::Png), {});
    builder.endParagraph();
    builder.append("end", {});
    return builder.text();
}

inline QImage grab(RichTextBox &box) {
    return box.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

} // namespace zolt::test
