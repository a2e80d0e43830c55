#pragma once

#include "core/codes.h"

#include <algorithm>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace zolt::test {

/// The 256 bytes in their order.
inline std::string everyByte() {
    std::string bytes;
    for (int code = 0; code < 256; ++code)
        bytes += static_cast<char>(code);
    return bytes;
}

/// A text in which "@" stands for the style mark and "#" for the cell mark.
inline std::string withMarks(std::string text) {
    std::replace(text.begin(), text.end(), '@', kStyleMark);
    std::replace(text.begin(), text.end(), '#', kCellMark);
    return text;
}

/// The same with the style mark of rich texts.
inline std::string withRichMarks(std::string text) {
    std::replace(text.begin(), text.end(), '@', kRichTextStyleMark);
    return withMarks(std::move(text));
}

/// Short texts of few different pieces, so that what matters meets often.
inline std::vector<std::string> randomTexts(const std::vector<std::string> &pieces, std::size_t count) {
    std::minstd_rand random(7);
    std::vector<std::string> texts(count);
    for (std::string &text : texts)
        for (std::size_t left = random() % 24; left > 0; --left)
            text += pieces[random() % pieces.size()];
    return texts;
}

} // namespace zolt::test
