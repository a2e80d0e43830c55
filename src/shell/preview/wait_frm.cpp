#include "shell/preview/wait_frm.h"

#include "shell/base/long_work.h"
#include "shell/base/shared_values.h"
#include "shell/widgets/command_button.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QVBoxLayout>
#include <memory>

namespace zolt {

namespace {

constexpr int kBarSteps = 1000;

QLabel *centredLabel(const char *name) {
    auto *label = new QLabel;
    label->setObjectName(QString::fromUtf8(name));
    label->setAlignment(Qt::AlignCenter);
    return label;
}

QProgressBar *bar(const char *name) {
    auto *bar = new QProgressBar;
    bar->setObjectName(QString::fromUtf8(name));
    bar->setRange(0, kBarSteps);
    bar->setTextVisible(false);
    return bar;
}

int stepsOf(std::size_t position, std::size_t length) {
    return length ? static_cast<int>(position * kBarSteps / length) : 0;
}

} // namespace

WaitFrm::WaitFrm(QWidget *owner)
    : ToolFrm(QStringLiteral("ZOLT"), BesideTheFrame, owner),
      Label1(centredLabel("Label1")),
      Label2(centredLabel("Label2")),
      ProgressBar1(bar("ProgressBar1")),
      ProgressBar2(bar("ProgressBar2")) {
    ProgressBar2->setMaximumHeight(8);
    QPushButton *cancel = newButton(this, "Command1", QStringLiteral("Cancel"), &WaitFrm::cancel);
    auto *column = new QVBoxLayout(this);
    for (QWidget *part : std::initializer_list<QWidget *>{Label1, Label2, ProgressBar1, ProgressBar2})
        column->addWidget(part);
    column->addWidget(cancel, 0, Qt::AlignCenter);
    setFixedWidth(320);
}

void WaitFrm::setTask(const QString &task) {
    Label1->setText(task);
}

PreviewProgress WaitFrm::progress() {
    auto clock = std::make_shared<QElapsedTimer>();
    clock->start();
    const auto stopped = [] { return shared::CancelarOperação == 1; };
    PreviewProgress progress;
    // `picture` below, which lives as long, keeps the window.
    progress.phase = [this, clock, stopped, shown = 0](int phase, std::size_t position,
                                                       std::size_t length) mutable {
        const bool begins = phase != shown;
        if (begins || clock->elapsed() >= kYieldEvery) {
            shown = phase;
            Label2->setText(
                QString::fromStdString(begins ? phaseLabel(phase) : phaseLabel(phase, position, length)));
            ProgressBar1->setValue(stepsOf(position, length));
            QCoreApplication::processEvents();
            clock->restart();
        }
        return !stopped();
    };
    progress.picture = livelyProgress(
        [this](std::size_t step, std::size_t total) { ProgressBar2->setValue(stepsOf(step, total)); },
        stopped);
    return progress;
}

Progress WaitFrm::plainProgress() {
    Label2->hide();
    ProgressBar2->hide();
    return livelyProgress(
        [self = QPointer<WaitFrm>(this)](std::size_t step, std::size_t total) {
            if (!self)
                return;
            self->ProgressBar1->setValue(stepsOf(step, total));
            if (self->isHidden() && self->m_working)
                self->present();
        },
        [] { return shared::CancelarOperação == 1; });
}

void WaitFrm::finish() {
    m_working = false;
    close();
}

void WaitFrm::cancel() {
    shared::CancelarOperação = 1;
}

void WaitFrm::closing() {
    if (m_working)
        shared::CancelarOperação = 1;
    m_working = false;
}

} // namespace zolt
