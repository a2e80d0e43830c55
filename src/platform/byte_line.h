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
};

} // namespace zolt
