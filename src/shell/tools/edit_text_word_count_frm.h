#pragma once

#include "shell/base/tool_frm.h"

#include <array>

class QLabel;

namespace zolt {

/// Four counts of the pane in use.
class EditTextWordCountFrm : public ToolFrm {
    Q_OBJECT

public:
    explicit EditTextWordCountFrm(QWidget *owner);

    void countDocument();

private:
    std::array<QLabel *, 4> m_counts{};
};

} // namespace zolt
