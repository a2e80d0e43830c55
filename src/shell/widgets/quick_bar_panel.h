#pragma once

#include <QWidget>
#include <array>

class QToolButton;

namespace zolt {

/// Where a quick bar stands; its dock buttons lead elsewhere from each place.
enum class QuickBarHost { FloatingWindow, Frame };

/// Index of the first and behind the last dock button in the bar's button array.
inline constexpr int kFirstDockButton = 72;
inline constexpr int kEndOfDockButtons = 78;

/// One layout of the quick bar: 72 character buttons and three that dock or float
/// the bar, of fixed size. The buttons are named `Command1_INDEX` by their index in
/// the bar's array of 150: 0 to 74 wide, 75 to 149 tall. The arrow keys move among
/// the characters.
class QuickBarPanel : public QWidget {
    Q_OBJECT

public:
    enum Layout { Wide, Tall };
    QuickBarPanel(Layout layout, QuickBarHost host, QWidget *parent = nullptr);

    /// Gives the keyboard to the first character.
    void focusFirst();

signals:
    void clicked(int index);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QToolButton *addButton(int index, QPoint place);
    void addCharacters();
    void addDockButtons(QuickBarHost host);

    Layout m_layout;
    std::array<QToolButton *, 72> m_characters{};
};

/// Does what a bar's button of this index is for: inserts its character, or changes
/// CharTool and shows the bar there.
void pressQuickBarButton(QuickBarHost host, int index);

} // namespace zolt
