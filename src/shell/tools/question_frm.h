#pragma once

#include "shell/base/tool_frm.h"

#include <array>

class QFrame;
class QGridLayout;
class QPushButton;

namespace zolt {

class PictureLabel;

/// The edition chooser. While it stands the frame is hidden; every way out shows
/// the frame, with the chosen edition's window in it or with none.
class QuestionFrm : public ToolFrm {
    Q_OBJECT

public:
    explicit QuestionFrm(QWidget *owner);

signals:
    /// An edition was chosen, 1 textual or 2 graphical; once it shows, the chooser goes.
    void chosen(int edition);

public slots:
    void SeleccionarEdiçãoTextual();
    void SeleccionarEdiçãoGráfica();
    void openChosenEdition();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *buildChoice(int number, const QString &caption, const QString &icon);
    void markChoice(int chosen);
    void choose(int edition);
    QWidget *picture(int edition) const;
    /// Arrow keys choose, and so do Space and Enter on a picture. False for other keys.
    bool chooseByKey(int key);

    std::array<QFrame *, 8> m_lines{};
};

} // namespace zolt
