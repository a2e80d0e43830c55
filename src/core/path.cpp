#include "core/path.h"

#include <algorithm>

namespace zolt {

std::string folderOf(std::string_view path) {
    const std::size_t separator = path.rfind('/');
    return separator == std::string_view::npos ? std::string() : std::string(path.substr(0, separator + 1));
}

std::string titleOf(std::string_view path) {
    const std::size_t separator = path.rfind('/');
    return std::string(separator == std::string_view::npos ? path : path.substr(separator + 1));
}

std::string extensionOf(std::string_view path) {
    const std::string title = titleOf(path);
    const std::size_t point = title.rfind('.');
    std::string extension(point == std::string::npos ? "" : title.substr(point + 1));
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return extension;
}

} // namespace zolt
