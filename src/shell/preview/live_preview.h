#pragma once

#include "shell/base/background_work.h"
#include "shell/base/source_snapshot.h"

#include <QBoxLayout>
#include <QList>
#include <QMetaObject>
#include <QWidget>
#include <atomic>
#include <memory>

class QListView;
class QStringListModel;
class QTimer;

namespace zolt {

class Pane;
class ScreenView;
struct CompiledScreen;

/// The document in use on the calculator's screen while one types. It is compiled beside
/// the windows whenever the keys rest, and scrolls to the caret's line; its menu entries
/// stand in a list. A press in either puts the caret there. What is typed while it
/// compiles makes it begin again.
class LivePreview : public QWidget {
    Q_OBJECT

public:
    explicit LivePreview(QWidget *parent = nullptr);
    ~LivePreview() override;

    /// Puts the entries below the screen, or beside it.
    void setDirection(QBoxLayout::Direction direction);

    /// Whether the screen shows the document as it is now.
    bool isUpToDate() const { return m_isUpToDate; }

protected:
    void showEvent(QShowEvent *event) override;

private:
    /// Takes the events of the pane in use.
    void followPane();
    /// The document is another one by now.
    void noteChange();
    /// Copies the document, slice by slice, and hands it on.
    void takeSlice();
    void compile(std::unique_ptr<SourceSnapshot> snapshot);
    void show(CompiledScreen screen, const QStringList &entries);
    void followCaret();
    void goTo(qsizetype character);
    void goToEntry(int row);

    ScreenView *Screen1;
    QListView *List1;
    QStringListModel *m_entries;
    QTimer *m_rest;
    QTimer *m_slices;
    QList<QMetaObject::Connection> m_connections;
    std::unique_ptr<SourceSnapshot> m_snapshot;
    bool m_isUpToDate = false;
    /// The newest compilation's number; older ones stop.
    std::shared_ptr<std::atomic<int>> m_newest = std::make_shared<std::atomic<int>>(0);
    BackgroundWork m_work; // the last: its jobs end before all else goes
};

} // namespace zolt
