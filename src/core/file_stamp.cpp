#include "core/file_stamp.h"

#include <sys/stat.h>

namespace zolt {

FileStamp stampOf(const std::string &path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0)
        return {};
    constexpr std::int64_t kNanoseconds = 1'000'000'000;
    return {true, status.st_dev, status.st_ino, status.st_size,
            status.st_mtim.tv_sec * kNanoseconds + status.st_mtim.tv_nsec};
}

} // namespace zolt
