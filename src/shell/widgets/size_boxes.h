#pragma once

#include <QWidget>

class QLineEdit;

namespace zolt {

class UpDown;

/// The two boxes for a picture's size in dots, Text2 for its width and Text3 for its
/// height, each with its spinner. A typed number takes effect only above 0 and under 133
/// or 1090, as it stands and not rounded; the spinner then has it rounded and within
/// its own range.
class SizeBoxes : public QWidget {
    Q_OBJECT

public:
    explicit SizeBoxes(QWidget *parent = nullptr);

    /// The number at the start of a box, rounded; 0 without one, and where the
    /// number is so large that the surface would pass 16 bits of twips.
    int widthInDots() const;
    int heightInDots() const;

signals:
    /// A new size is in force.
    void sizeChosen();

private:
    QLineEdit *addBox(int row, const char *name, const char *spinner, const QString &caption, int start,
                      int typedUnder, int mostSpun);

    QLineEdit *m_width;
    QLineEdit *m_height;
};

} // namespace zolt
