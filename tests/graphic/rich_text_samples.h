#pragma once

#include "graphic/rich_text.h"

#include <random>
#include <string>
#include <string_view>

namespace zolt::test {

/// The bytes of pairs of hexadecimal digits.
std::string bytesOfHex(std::string_view hex);

/// A grey PNG file of 8 by 6 dots.
std::string pngFile();
/// A PNG, JPEG or BMP file with a size of its own in its header; the JPEG file
/// ends behind its header.
RichPicture samplePicture(RichPicture::Kind kind);
/// A BMP file of one bit a dot, all dots black.
std::string bmpFile(int width, int height);

/// The same with its fonts in the order of their first use, as the text control gives them.
RichText withFontsInOrder(const RichText &text);

/// One paragraph of one run.
RichText oneRun(std::string_view characters, const CharFormat &format = {});

/// Fonts, sizes, colours, attributes, pictures, empty paragraphs and all bytes, in
/// the form in which a reader gives it: neighbours differ in format, no run is empty.
RichText randomRichText(std::mt19937 &random);

} // namespace zolt::test
