#pragma once

#include "shell/base/tool_frm.h"

namespace zolt {

/// The program's name and version, and where it lives.
class AboutFrm : public ToolFrm {
    Q_OBJECT

public:
    explicit AboutFrm(QWidget *owner);
};

} // namespace zolt
