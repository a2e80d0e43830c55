#include "core/kept_documents.h"

#include "core/descriptor.h"
#include "core/file.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace zolt {

namespace {

namespace fs = std::filesystem;

constexpr char kDocument[] = "document";
constexpr char kLock[] = "lock";
constexpr char kSessions[] = "running";
constexpr char kThrownAway[] = "thrown-away";

/// Makes a folder and those above it, for the user alone.
bool makeFolder(const std::string &folder) {
    std::error_code error;
    fs::create_directories(folder, error);
    return !error && ::chmod(folder.c_str(), S_IRWXU) == 0;
}

std::string writeAlone(const std::string &path, const KeptDocument &document) {
    // A file that is replaced keeps its permissions.
    const Descriptor made(::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR));
    return made.isOpen() ? writeFile(path, keptFile(document)) : reasonOf(errno);
}

std::vector<fs::path> contentsOf(const std::string &folder) {
    std::vector<fs::path> paths;
    std::error_code error;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error))
        paths.push_back(it->path());
    return paths;
}

/// The entry of a file, if it holds a document that something is left of.
void addEntry(const std::string &file, std::vector<KeptDocuments::Entry> &entries) {
    const FileContents contents = readFile(file);
    if (auto document = readKeptFile(contents.bytes); document && !document->bytes.empty())
        entries.push_back({file, std::move(*document)});
}

std::vector<KeptDocuments::Entry> latestFirst(std::vector<KeptDocuments::Entry> entries) {
    std::stable_sort(entries.begin(), entries.end(),
                     [](const auto &a, const auto &b) { return a.document.time > b.document.time; });
    return entries;
}

/// Whether a program that lives holds a session's folder.
bool isHeld(const fs::path &session) {
    const Descriptor lock(::open((session / kLock).c_str(), O_RDWR | O_CLOEXEC));
    return lock.isOpen() && ::flock(lock.get(), LOCK_EX | LOCK_NB) != 0;
}

} // namespace

KeptDocuments::KeptDocuments(std::string folder) : m_folder(std::move(folder)) {}

KeptDocuments::~KeptDocuments() {
    if (m_lock < 0)
        return;
    std::error_code ignored;
    if (!fs::exists(m_session + "/" + kDocument, ignored))
        fs::remove_all(m_session, ignored);
    ::close(m_lock);
}

bool KeptDocuments::openSession() {
    if (m_lock >= 0)
        return true;
    const std::string sessions = m_folder + "/" + kSessions;
    if (!makeFolder(m_folder) || !makeFolder(sessions))
        return false;
    m_session = sessions + "/XXXXXX";
    if (!::mkdtemp(m_session.data()))
        return false;
    m_lock = ::open((m_session + "/" + kLock).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
    return m_lock >= 0 && ::flock(m_lock, LOCK_EX | LOCK_NB) == 0;
}

std::string KeptDocuments::keep(const KeptDocument &document) {
    if (!openSession())
        return reasonOf(errno);
    return writeAlone(m_session + "/" + kDocument, document);
}

void KeptDocuments::drop() {
    if (m_lock >= 0)
        ::unlink((m_session + "/" + kDocument).c_str());
}

std::string KeptDocuments::keepThrownAway(const KeptDocument &document) {
    const std::string folder = m_folder + "/" + kThrownAway;
    if (!makeFolder(m_folder) || !makeFolder(folder))
        return reasonOf(errno);
    std::string name = folder + "/XXXXXX";
    const Descriptor file(::mkostemp(name.data(), O_CLOEXEC));
    if (!file.isOpen())
        return reasonOf(errno);
    std::string reason = writeAlone(name, document);
    if (!reason.empty())
        ::unlink(name.c_str());
    const std::vector<Entry> entries = thrownAway();
    for (std::size_t i = 0; i < entries.size(); ++i)
        if (i >= kMostThrownAway || entries[i].document.time < std::time(nullptr) - kLongest)
            remove(entries[i]);
    return reason;
}

std::vector<KeptDocuments::Entry> KeptDocuments::leftByCrashes() const {
    std::vector<Entry> entries;
    for (const fs::path &session : contentsOf(m_folder + "/" + kSessions))
        if (session != m_session && !isHeld(session))
            addEntry(session / kDocument, entries);
    return latestFirst(std::move(entries));
}

std::vector<KeptDocuments::Entry> KeptDocuments::thrownAway() const {
    std::vector<Entry> entries;
    for (const fs::path &file : contentsOf(m_folder + "/" + kThrownAway))
        addEntry(file, entries);
    return latestFirst(std::move(entries));
}

void KeptDocuments::remove(const Entry &entry) {
    ::unlink(entry.file.c_str());
    if (titleOf(entry.file) != kDocument)
        return;
    const std::string session = folderOf(entry.file);
    ::unlink((session + kLock).c_str());
    ::rmdir(session.c_str());
}

std::string keptDocumentsFolder() {
    // As the base directories of the desktop have it.
    const char *state = std::getenv("XDG_STATE_HOME");
    if (state && *state == '/')
        return std::string(state) + "/zolt";
    const char *home = std::getenv("HOME");
    return std::string(home ? home : "") + "/.local/state/zolt";
}

} // namespace zolt
