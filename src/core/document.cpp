#include "core/document.h"

#include "core/codes.h"
#include "core/reporter.h"

#include <optional>
#include <utility>

namespace zolt {

namespace {

constexpr char kCr = '\r';

/// Where the next CR from a position on stands that no LF follows, or the text's end. No
/// value when asked to stop.
std::optional<std::size_t> nextLoneCr(std::string_view text, std::size_t from, Reporter &reporter) {
    for (std::size_t cr = text.find(kCr, from); cr != std::string_view::npos;
         cr = text.find(kCr, cr + kLineEnd.size())) {
        if (text.substr(cr, kLineEnd.size()) != kLineEnd)
            return cr;
        if (!reporter.goOn(cr))
            return std::nullopt;
    }
    return text.size();
}

} // namespace

std::string documentFromFile(std::string &&bytes, const Progress &progress) {
    std::string document = std::move(bytes);
    if (document.ends_with(kLineEnd))
        document.resize(document.size() - kLineEnd.size());
    else if (document.ends_with(kCr))
        document.pop_back();
    Reporter reporter(progress, document.size());
    std::optional<std::size_t> loneCr = nextLoneCr(document, 0, reporter);
    if (loneCr == document.size())
        return document;

    std::string ended;
    ended.reserve(document.size() + document.size() / 32);
    ended.append(document, 0, loneCr.value_or(0));
    while (loneCr && *loneCr < document.size() && reporter.goOn(*loneCr)) {
        const std::size_t begin = *loneCr + 1;
        loneCr = nextLoneCr(document, begin, reporter);
        ended.append(kLineEnd).append(document, begin, loneCr.value_or(begin) - begin);
    }
    return ended;
}

std::string documentFromFile(std::string_view bytes, const Progress &progress) {
    return documentFromFile(std::string(bytes), progress);
}

std::string fileFromDocument(std::string &&document) {
    return std::move(document.append(kLineEnd));
}

std::string fileFromDocument(std::string_view document) {
    return fileFromDocument(copyWithRoom(document));
}

std::string copyWithRoom(std::string_view text) {
    constexpr std::size_t kRoom = 4;
    std::string copy;
    copy.reserve(text.size() + kRoom);
    return std::move(copy.append(text));
}

} // namespace zolt
