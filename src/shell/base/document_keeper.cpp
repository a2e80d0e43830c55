#include "shell/base/document_keeper.h"

#include <QTimer>
#include <ctime>
#include <utility>

namespace zolt {

namespace {

/// In milliseconds.
constexpr int kRest = 1500;
constexpr int kDeadline = 12'000;

std::unique_ptr<DocumentKeeper> theKeeper;

KeptDocument finished(KeptSnapshot &snapshot) {
    snapshot.document.bytes = snapshot.bytes();
    return std::move(snapshot.document);
}

} // namespace

DocumentKeeper::DocumentKeeper(std::string folder)
    : m_kept(std::make_shared<KeptDocuments>(std::move(folder))),
      m_rest(new QTimer(this)),
      m_deadline(new QTimer(this)) {
    for (QTimer *timer : {m_rest, m_deadline}) {
        timer->setSingleShot(true);
        connect(timer, &QTimer::timeout, this, &DocumentKeeper::keep);
    }
    m_rest->setInterval(kRest);
    m_deadline->setInterval(kDeadline);
}

DocumentKeeper::~DocumentKeeper() = default;

void DocumentKeeper::follow(std::function<KeptSnapshot()> take) {
    m_take = std::move(take);
}

void DocumentKeeper::noteChange() {
    m_rest->start();
    if (!m_deadline->isActive())
        m_deadline->start();
}

void DocumentKeeper::keep() {
    for (QTimer *timer : {m_rest, m_deadline})
        timer->stop();
    if (!m_take)
        return;
    m_isKept = true;
    // A failure is silent: the document itself stands in its pane.
    m_work.run([this, kept = m_kept, snapshot = m_take()]() mutable {
        m_hasFailed = !kept->keep(finished(snapshot)).empty();
        if (m_hasFailed)
            QMetaObject::invokeMethod(this, &DocumentKeeper::tryAgainLater, Qt::QueuedConnection);
    });
}

void DocumentKeeper::tryAgainLater() {
    if (m_isKept && !m_deadline->isActive())
        m_deadline->start();
}

void DocumentKeeper::drop() {
    for (QTimer *timer : {m_rest, m_deadline})
        timer->stop();
    if (std::exchange(m_isKept, false))
        m_work.run([kept = m_kept] { kept->drop(); });
}

bool DocumentKeeper::keepNow() {
    m_work.finish();
    if (m_rest->isActive() || m_deadline->isActive() || (m_isKept && m_hasFailed))
        keep();
    m_work.finish();
    return m_isKept && !m_hasFailed;
}

void DocumentKeeper::throwAway(KeptSnapshot snapshot) {
    if (!m_keepsThrownAway)
        return;
    m_work.run([kept = m_kept, snapshot = std::move(snapshot)]() mutable {
        static_cast<void>(kept->keepThrownAway(finished(snapshot)));
    });
}

std::vector<KeptDocuments::Entry> DocumentKeeper::leftByCrashes() {
    m_work.finish();
    return m_kept->leftByCrashes();
}

std::vector<KeptDocuments::Entry> DocumentKeeper::thrownAway() {
    m_work.finish();
    return m_kept->thrownAway();
}

void DocumentKeeper::remove(const KeptDocuments::Entry &entry) {
    m_work.finish();
    m_kept->remove(entry);
}

DocumentKeeper *documentKeeper() {
    return theKeeper.get();
}

void keepDocumentsIn(const std::string &folder) {
    theKeeper.reset();
    if (!folder.empty())
        theKeeper = std::make_unique<DocumentKeeper>(folder);
}

} // namespace zolt
