#pragma once

#include "core/kept_documents.h"
#include "shell/base/background_work.h"

#include <QObject>
#include <atomic>
#include <functional>
#include <memory>

class QTimer;

namespace zolt {

/// A document to be kept. Making its bytes may take a while, and happens beside the
/// windows.
struct KeptSnapshot {
    KeptDocument document;
    std::function<std::string()> bytes;
};

/// Keeps the document in use while it isn't saved: soon after the keys rest, and at the
/// latest a dozen seconds after a change. So whatever happens to the machine, the next
/// start can give it back. One for the whole program.
class DocumentKeeper : public QObject {
    Q_OBJECT

public:
    /// `folder` as for KeptDocuments.
    explicit DocumentKeeper(std::string folder);
    ~DocumentKeeper() override;

    /// Where to take the document in use from; none for an empty function.
    void follow(std::function<KeptSnapshot()> take);
    /// The document in use has changed.
    void noteChange();
    /// It is saved, or gone: nothing of it is to be given back after a crash.
    void drop();
    /// Keeps it now, if it has changed since it was kept, and waits until that is done.
    /// Whether what it was then is on the disk.
    bool keepNow();

    /// Keeps a document that is thrown away on purpose, unless the user has turned that
    /// off.
    void throwAway(KeptSnapshot snapshot);
    bool keepsThrownAway() const { return m_keepsThrownAway; }
    void setKeepsThrownAway(bool on) { m_keepsThrownAway = on; }

    /// What can be given back; waits for what is being written.
    std::vector<KeptDocuments::Entry> leftByCrashes();
    std::vector<KeptDocuments::Entry> thrownAway();
    void remove(const KeptDocuments::Entry &entry);

private:
    void keep();
    /// The disk may have room by then, though nobody types.
    void tryAgainLater();

    std::shared_ptr<KeptDocuments> m_kept;
    std::function<KeptSnapshot()> m_take;
    bool m_keepsThrownAway = true;
    bool m_isKept = false; // something is there to drop
    std::atomic<bool> m_hasFailed = false;
    /// The keys rest; and a change has waited for long enough.
    QTimer *m_rest;
    QTimer *m_deadline;
    BackgroundWork m_work; // the last: its jobs end before all else goes
};

/// The program's keeper; null before the start.
DocumentKeeper *documentKeeper();
/// Begins to keep documents in a folder, or ends it, for an empty one.
void keepDocumentsIn(const std::string &folder);

} // namespace zolt
