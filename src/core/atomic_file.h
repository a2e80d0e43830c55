#pragma once

#include "core/new_file.h"

#include <string>
#include <string_view>

namespace zolt {

/// A file that is written piece by piece and takes its place whole or not at all:
/// the bytes go into a new file beside it, and commit() puts that in its place.
/// Symbolic links stay links, and an existing file keeps its permissions, access control
/// list and extended attributes and, where the user may give it away, its owner; other
/// hard links keep the old contents.
/// Where the folder takes no new file or the system doesn't let the old one be
/// replaced, the bytes wait in the folder of temporary files and commit() writes them
/// over the old ones, as overwriteInPlace does.
/// Only regular files that may be written are replaced. The first failure is kept;
/// what is appended after it is dropped. Without a commit nothing has changed and
/// the new file is gone.
class AtomicFile {
public:
    explicit AtomicFile(const std::string &path);
    AtomicFile(const AtomicFile &) = delete;
    AtomicFile &operator=(const AtomicFile &) = delete;

    void append(std::string_view bytes);
    /// Flushes the bytes to the disk and puts the file in its place. Returns the
    /// reason of the first failure, else an empty text.
    std::string commit();

private:
    void open();
    void takePlace();
    void fail(int error);

    std::string m_target;
    bool m_targetExists = false;
    /// Beside the target, or among the temporary files.
    NewFile m_new;
    bool m_isBeside = true;
    std::string m_reason;
};

} // namespace zolt
