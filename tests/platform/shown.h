#pragma once

#include <QApplication>
#include <QDragEnterEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QTest>
#include <QTextCursor>
#include <QWidget>
#include <functional>
#include <random>
#include <string_view>

namespace zolt::test {

/// Drops on a widget as another program does; whether it was taken.
inline bool dropOn(QWidget *widget, const QMimeData &mime, QPoint place) {
    QDragEnterEvent enter(place, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &enter);
    QDropEvent drop(place, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &drop);
    return enter.isAccepted() && drop.isAccepted();
}

/// Until all paragraphs are measured.
inline void settle() {
    for (int turn = 0; turn < 40; ++turn)
        QApplication::processEvents();
}

/// A shown text control with the focus.
template <class Control> struct Shown {
    explicit Shown(std::string_view text = "", bool wraps = true) : box(wraps) {
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

    bool drop(const QMimeData &mime, int position) {
        QTextCursor cursor(box.document());
        cursor.setPosition(position);
        return dropOn(box.viewport(), mime, box.cursorRect(cursor).center());
    }

    /// Anything that a user or the program may do; `inserted` is what goes in at once.
    void editSomehow(std::mt19937 &random, std::string_view inserted) {
        const qsizetype places[] = {0, static_cast<qsizetype>(random() % 1000), box.length() / 2,
                                    box.length()};
        select(places[random() % 4], static_cast<qsizetype>(random() % 80));
        QMimeData dropped;
        dropped.setText(QStringLiteral("dropped words"));
        QInputMethodEvent composed;
        composed.setCommitString(QStringLiteral("composed words"), random() % 2 ? 0 : -1, 0);
        const std::function<void()> edits[] = {
            [&] { key(Qt::Key_Return); },
            [&] { key(Qt::Key_Backspace); },
            [&] { key(Qt::Key_Delete); },
            [&] { key(Qt::Key_X, Qt::ControlModifier); },
            [&] { key(Qt::Key_V, Qt::ControlModifier); },
            [&] { type(QStringLiteral("typed words ")); },
            [&] { box.setSelText(inserted); },
            [&] { box.undo(); },
            [&] { box.redo(); },
            [&] { box.resize(static_cast<int>(120 + random() % 300), box.height()); },
            [&] { drop(dropped, box.textCursor().position()); },
            [&] { QApplication::sendEvent(&box, &composed); },
        };
        edits[random() % std::size(edits)]();
    }

    Control box;
};

} // namespace zolt::test
