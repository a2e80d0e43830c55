#pragma once

#include <QLineEdit>
#include <string>
#include <string_view>

namespace zolt {

/// A box for one line of bytes, shown as the calculator shows them. What is typed or
/// pasted becomes bytes as in a TextPane; a line end becomes a blank.
class ByteLine : public QLineEdit {
    Q_OBJECT

public:
    explicit ByteLine(QWidget *parent = nullptr);

    std::string Text() const;
    void setText(std::string_view bytes);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    // The line's own commands know text only.
    void copyBytes() const;
    void cutBytes();
    void pasteBytes();
};

} // namespace zolt
