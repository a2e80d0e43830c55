#include "core/path.h"

namespace zolt {

std::string folderOf(std::string_view path) {
    const std::size_t separator = path.rfind('/');
    return separator == std::string_view::npos ? std::string() : std::string(path.substr(0, separator + 1));
}

std::string titleOf(std::string_view path) {
    const std::size_t separator = path.rfind('/');
    return std::string(separator == std::string_view::npos ? path : path.substr(separator + 1));
}

} // namespace zolt
