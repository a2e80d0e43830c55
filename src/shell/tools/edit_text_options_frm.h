#pragma once

#include "core/settings.h"
#include "shell/base/tool_frm.h"

#include <array>

class QCheckBox;
class QLineEdit;

namespace zolt {

/// Where the program looks for files and stores them, and the way back to the standard
/// configuration. What it stores reaches the settings file when the program ends.
class EditTextOptionsFrm : public ToolFrm {
    Q_OBJECT

public:
    explicit EditTextOptionsFrm(QWidget *owner);

public slots:
    /// Stores the paths as they stand. With Check1 set it asks whether to end the program
    /// and, unless that is cancelled, gives all settings their defaults.
    void accept() override;

private:
    static constexpr std::size_t kRows = 9;

    QWidget *newRows();
    /// Both put what the user chooses into a row's box.
    void browse(std::size_t row);
    void chooseSymbolFile(std::size_t row);
    void storePaths() const;

    /// A row's box, from 0, and its text at the opening: a path that isn't text as the
    /// desktop writes it stays as it is until the box is edited.
    std::array<QLineEdit *, kRows> m_boxes{};
    std::array<QString, kRows> m_shown;
    QCheckBox *Check1;
};

} // namespace zolt
