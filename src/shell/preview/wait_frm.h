#pragma once

#include "hp48/preview_compiler.h"
#include "shell/base/tool_frm.h"

class QLabel;
class QProgressBar;

namespace zolt {

/// The progress window of the text edition's compilers and of printing. Its Cancel button sets
/// CancelarOperação, and so does closing it while the work goes on.
class WaitFrm : public ToolFrm {
    Q_OBJECT

public:
    explicit WaitFrm(QWidget *owner);

    /// What is being done, in Label1.
    void setTask(const QString &task);
    /// Shows a compilation's progress and lets the windows live.
    PreviewProgress progress();
    /// Shows work without phases, once it takes its time, and lets the windows live.
    Progress plainProgress();
    /// The work has ended: the window closes.
    void finish();

public slots:
    void cancel();

protected:
    void closing() override;

private:
    QLabel *Label1;
    QLabel *Label2;
    QProgressBar *ProgressBar1;
    QProgressBar *ProgressBar2;
    bool m_working = true;
};

} // namespace zolt
