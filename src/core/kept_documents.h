#pragma once

#include "core/kept_document.h"

#include <cstddef>
#include <string>
#include <vector>

namespace zolt {

/// The folder in which a user's unsaved documents are kept, readable by him alone. Each
/// program that runs has a folder of its own in it, which it holds locked while it lives;
/// what stands in one that nobody holds was left by a crash. Beside them stand the last
/// documents that were thrown away on purpose.
class KeptDocuments {
public:
    /// How many thrown away documents stay, and for how long, in seconds.
    static constexpr std::size_t kMostThrownAway = 10;
    static constexpr std::int64_t kLongest = std::int64_t{30} * 24 * 60 * 60;

    /// `folder` is made when something is kept.
    explicit KeptDocuments(std::string folder);
    ~KeptDocuments();
    KeptDocuments(const KeptDocuments &) = delete;
    KeptDocuments &operator=(const KeptDocuments &) = delete;

    /// Keeps the document in use, in the place of what was kept of it before. May be called
    /// from any one thread at a time. Gives the reason of a failure, else an empty text.
    std::string keep(const KeptDocument &document);
    /// The document in use is saved, or goes another way.
    void drop();

    /// Keeps a document that is thrown away, and lets go those that are too many or too old.
    std::string keepThrownAway(const KeptDocument &document);

    /// A kept document and its file.
    struct Entry {
        std::string file;
        KeptDocument document;
    };
    /// What crashes have left, and what was thrown away: the latest first. Damaged ones of
    /// which nothing is left are not among them.
    std::vector<Entry> leftByCrashes() const;
    std::vector<Entry> thrownAway() const;
    /// Takes an entry away.
    void remove(const Entry &entry);

private:
    bool openSession();

    std::string m_folder;
    std::string m_session;
    int m_lock = -1;
};

/// Where such folders stand: the user's state folder.
std::string keptDocumentsFolder();

} // namespace zolt
