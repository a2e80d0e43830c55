#pragma once

#include "platform/dropped_files.h"

#include <QObject>
#include <QStringList>
#include <deque>
#include <string>

namespace zolt {

class ToolFrm;

/// The files that were dropped on the frame and wait for their turn: documents first, of
/// which the last one stays, then one after the other those whose window the user closes
/// before the next one comes.
class DroppedQueue : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    void take(const DroppedFiles &files);

private:
    void openDocuments();
    /// Shows the next file in its window, as soon as no window stands that it waits for.
    void showNext();
    void show(const std::string &path);
    void showSymbols(const std::string &path);
    void waitFor(ToolFrm &window);
    /// Says what became of the files that aren't taken, once that isn't overwritten.
    void say();

    std::deque<std::string> m_documents;
    std::deque<std::string> m_others;
    QStringList m_notTaken;
    bool m_busy = false;
};

} // namespace zolt
