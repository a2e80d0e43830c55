#pragma once

#include <QDialog>
#include <array>

class QLabel;
class QListWidget;

namespace zolt {

/// The menu entries of the reading copy. A double click goes to one.
class EditTextPreviewNormalMenuFrm : public QDialog {
    Q_OBJECT

public:
    explicit EditTextPreviewNormalMenuFrm(QWidget *owner);

    /// Lists the entries of the compiled document.
    void fill();

protected:
    /// Gives the keyboard back to the reading copy.
    void hideEvent(QHideEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void showPanels();
    void goToCurrent();

    QListWidget *List1;
    std::array<QLabel *, 2> m_panels{};
};

} // namespace zolt
