#include "graphic/rich_text_samples.h"

#include "graphic/rich_text_builder.h"
#include "graphic/rtf_picture.h"
#include "graphic/rtf_tokenizer.h"

namespace zolt::test {

namespace {

int below(std::mt19937 &random, int limit) {
    return std::uniform_int_distribution<int>(0, limit - 1)(random);
}

std::string randomCharacters(std::mt19937 &random) {
    std::string characters;
    for (int left = 1 + below(random, 40); left > 0; --left) {
        char c = static_cast<char>(below(random, 256));
        if (c == '\n' && !characters.empty() && characters.back() == '\r')
            c = '.';
        characters += c;
    }
    // A lone CR and a lone LF may not meet across two runs.
    if (characters.back() == '\r')
        characters.back() = '.';
    return characters;
}

CharFormat randomFormat(std::mt19937 &random, const RichText &text) {
    CharFormat format;
    format.font = static_cast<std::uint16_t>(below(random, static_cast<int>(text.fonts.size())));
    format.halfPoints = static_cast<std::uint16_t>(1 + below(random, below(random, 2) ? 150 : 65535));
    if (below(random, 2))
        format.colour = static_cast<Colour>(below(random, 0x1000000));
    format.bold = below(random, 2);
    format.italic = below(random, 2);
    format.underline = below(random, 2);
    format.strikeThru = below(random, 2);
    return format;
}

} // namespace

std::string bytesOfHex(std::string_view hex) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
        bytes += static_cast<char>(rtfHexValue(hex[i]) * 16 + rtfHexValue(hex[i + 1]));
    return bytes;
}

std::string pngFile() {
    return bytesOfHex("89504e470d0a1a0a0000000d4948445200000008000000060800000000db6e802700000014494441"
                      "5478da6360f8ff1f8c603482c9805b0a005d031fe1649abcfe0000000049454e44ae426082");
}

std::string bmpFile(int width, int height) {
    std::string dib(40, '\0');
    dib[0] = 40;
    dib[4] = static_cast<char>(width);
    dib[8] = static_cast<char>(height);
    dib[12] = 1;
    dib[14] = 1;
    dib += bytesOfHex("00000000ffffff00");
    dib.append(static_cast<std::size_t>((width + 31) / 32 * 4 * height), '\0');
    return bmpFromDib(dib);
}

RichPicture samplePicture(RichPicture::Kind kind) {
    switch (kind) {
    case RichPicture::Kind::Png:
        return {kind, pngFile(), 8 * 30, 6 * 30};
    case RichPicture::Kind::Jpeg:
        return {kind, bytesOfHex("ffd8ffe000104a46494600010100000100010000ffc0000b080009000c01011100"), 180,
                135};
    case RichPicture::Kind::Bmp:
        return {kind, bmpFile(20, 12), 20 * 30, 12 * 30};
    case RichPicture::Kind::Wmf:
    case RichPicture::Kind::Emf:
    case RichPicture::Kind::MacPict:
        return {kind, "a drawing", 300, 601};
    }
    return {};
}

RichText withFontsInOrder(const RichText &text) {
    RichText result = text;
    result.fonts.clear();
    for (Paragraph &paragraph : result.paragraphs) {
        for (Run &run : paragraph.runs)
            run.format.font = result.fontIndex(text.fonts[run.format.font]);
    }
    if (result.fonts.empty())
        result.fonts = {"ZOLT"};
    return result;
}

RichText oneRun(std::string_view characters, const CharFormat &format) {
    RichTextBuilder builder;
    builder.append(characters, format);
    return builder.text();
}

RichText randomRichText(std::mt19937 &random) {
    RichTextBuilder builder;
    RichText &text = builder.text();
    for (const char *font : {"ZOLTBold", "MS Sans Serif", "ZOLTDouble", "Caf\xE9 \\{x}"}) {
        if (below(random, 2))
            text.fontIndex(font);
    }
    for (int left = below(random, 30); left > 0; --left) {
        const int what = below(random, 10);
        const CharFormat format = randomFormat(random, text);
        if (what < 3)
            builder.endParagraph();
        else if (what < 5)
            builder.append(samplePicture(static_cast<RichPicture::Kind>(below(random, 6))), format);
        else
            builder.append(randomCharacters(random), format);
    }
    return std::move(text);
}

} // namespace zolt::test
