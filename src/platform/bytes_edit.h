#pragma once

#include <QLineEdit>
#include <string>

namespace zolt {

/// A one-line text box whose text is bytes, as in a TextPane: typed and pasted
/// characters become bytes of code page 1252, else of the calculator's set, else
/// "?", and look in the calculator's fonts as they do there.
class BytesEdit : public QLineEdit {
    Q_OBJECT

public:
    explicit BytesEdit(QWidget *parent = nullptr);

    std::string Text() const;

private:
    void holdBytes();
};

} // namespace zolt
