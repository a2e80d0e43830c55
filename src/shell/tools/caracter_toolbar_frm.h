#pragma once

#include "shell/widgets/quick_bar_panel.h"

namespace zolt {

/// The floating quick bar: one of its two layouts shows. Closing it stores its place.
class CaracterToolbarFrm : public QWidget {
    Q_OBJECT

public:
    explicit CaracterToolbarFrm(QWidget *owner);

    void showLayout(QuickBarPanel::Layout layout);

public slots:
    void pressButton(int index);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QuickBarPanel *Picture1;
    QuickBarPanel *Picture2;
};

} // namespace zolt
