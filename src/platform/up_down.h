#pragma once

#include <QWidget>

class QLineEdit;

namespace zolt {

/// A pair of small buttons that step a number up and down, beside the box that
/// shows it. The box's arrow keys and wheel step too.
class UpDown : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int value READ value WRITE setValue NOTIFY valueChanged)

public:
    UpDown(int least, int most, int value, QLineEdit *box);

    int value() const { return m_value; }
    int least() const { return m_least; }
    int most() const { return m_most; }

public slots:
    /// Values outside the range change nothing.
    void setValue(int value);
    void stepUp() { setValue(m_value + 1); }
    void stepDown() { setValue(m_value - 1); }

signals:
    void valueChanged(int value);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    int m_least;
    int m_most;
    int m_value;
};

} // namespace zolt
