#pragma once

#include "core/date_forms.h"
#include "shell/base/tool_frm.h"

#include <QDateTime>

class QListWidget;

namespace zolt {

/// Inserts the moment of its opening in a form chosen from a list.
class DateTimeFrm : public ToolFrm {
    Q_OBJECT

public:
    explicit DateTimeFrm(QWidget *owner);

public slots:
    /// Inserts the chosen form and closes.
    void insert();

private:
    std::array<std::string, kDateForms> m_forms;
    QListWidget *List1;
};

} // namespace zolt
