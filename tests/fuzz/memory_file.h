#pragma once

#include "core/descriptor.h"
#include "fuzz/require.h"

#include <string>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>

namespace zolt::test {

/// A file that stands in memory alone, for what is read from a path.
class MemoryFile {
public:
    void put(std::string_view bytes) const {
        const bool isPut =
            ::ftruncate(m_file.get(), 0) == 0 &&
            ::pwrite(m_file.get(), bytes.data(), bytes.size(), 0) == static_cast<::ssize_t>(bytes.size());
        require(isPut, "no file in memory");
    }
    /// For this process alone.
    std::string path() const { return "/proc/self/fd/" + std::to_string(m_file.get()); }

private:
    Descriptor m_file{::memfd_create("zolt", 0)};
};

} // namespace zolt::test
