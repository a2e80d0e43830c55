#pragma once

#include <QWidget>

class QLineEdit;

namespace zolt {

class UpDown;

/// The two boxes for a picture's size in dots, Text2 for its width and Text3 for its
/// height, each with its spinner. A typed number takes effect only within its range;
/// the text stays as it is typed.
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
                      int mostTyped, int mostSpun);

    QLineEdit *Text2;
    QLineEdit *Text3;
};

} // namespace zolt
