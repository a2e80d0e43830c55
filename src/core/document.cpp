#include "core/document.h"

#include "core/codes.h"
#include "core/reporter.h"

namespace zolt {

std::string documentFromFile(std::string_view bytes, const Progress &progress) {
    std::string document;
    document.reserve(bytes.size() + bytes.size() / 32);
    Reporter reporter(progress, bytes.size());
    std::size_t lineStart = 0;
    while (lineStart < bytes.size()) {
        const std::size_t cr = bytes.find('\r', lineStart);
        const std::size_t lineEnd = cr == std::string_view::npos ? bytes.size() : cr;
        document.append(bytes, lineStart, lineEnd - lineStart);
        document.append(kLineEnd);
        lineStart = lineEnd + (bytes.substr(lineEnd, 2) == kLineEnd ? 2 : 1);
        if (!reporter.goOn(lineStart))
            break;
    }
    if (!document.empty())
        document.resize(document.size() - kLineEnd.size());
    return document;
}

std::string fileFromDocument(std::string_view document) {
    std::string bytes;
    bytes.reserve(document.size() + kLineEnd.size());
    bytes.append(document).append(kLineEnd);
    return bytes;
}

} // namespace zolt
