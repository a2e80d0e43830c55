#include "images/gif_file.h"

#include "core/reporter.h"

#include <array>
#include <cstdint>

namespace zolt {

namespace {

constexpr int kTableColours = 256;
constexpr std::array<unsigned char, 5> kLevels{0, 64, 128, 192, 255};
/// Places of the two colours in the table: its first, and the last of the 125.
constexpr int kBlack = 0;
constexpr int kWhite = 124;
constexpr char kTrailer = '\x3B';
constexpr std::size_t kRowsBetweenReports = 10;

void put16(std::string &bytes, int value) {
    bytes += static_cast<char>(value);
    bytes += static_cast<char>(value >> 8);
}

/// 125 colours, red changing fastest, then green, then blue; the others are black.
std::string colourTable() {
    std::string table;
    for (const unsigned char blue : kLevels)
        for (const unsigned char green : kLevels)
            for (const unsigned char red : kLevels)
                table.append({static_cast<char>(red), static_cast<char>(green), static_cast<char>(blue)});
    table.resize(std::size_t{3} * kTableColours, '\0');
    return table;
}

/// Packs codes, the lowest bit first, into blocks of up to 255 bytes behind their
/// length bytes.
class CodeWriter {
public:
    explicit CodeWriter(std::string &bytes) : m_bytes(bytes) {}

    void write(unsigned code) {
        m_bits |= code << m_bitCount;
        for (m_bitCount += kCodeBits; m_bitCount >= 8; m_bitCount -= 8) {
            putByte(static_cast<char>(m_bits));
            m_bits >>= 8;
        }
    }

    /// Writes what is left, and the block that ends all blocks.
    void finish() {
        if (m_bitCount > 0)
            putByte(static_cast<char>(m_bits));
        endBlock();
        m_bytes += '\0';
    }

private:
    static constexpr int kCodeBits = 9;
    static constexpr std::size_t kLongestBlock = 255;

    void putByte(char byte) {
        m_block += byte;
        if (m_block.size() == kLongestBlock)
            endBlock();
    }
    void endBlock() {
        if (m_block.empty())
            return;
        m_bytes += static_cast<char>(m_block.size());
        m_bytes += m_block;
        m_block.clear();
    }

    std::string &m_bytes;
    std::string m_block;
    unsigned m_bits = 0;
    int m_bitCount = 0;
};

/// Compresses rows of black and white pixels. The table of strings holds so few
/// that a code always fits into 9 bits, and it is cleared at the start of a row.
class Compressor {
public:
    explicit Compressor(std::string &bytes) : m_codes(bytes) {}

    void startRow() {
        if (m_inRow)
            m_codes.write(m_string);
        m_inRow = false;
        clearTable();
    }

    void addPixel(int pixel) {
        const auto colour = static_cast<unsigned>(pixel);
        if (!m_inRow) {
            m_string = colour;
            m_inRow = true;
            return;
        }
        std::uint16_t &longer = m_longer[m_string][pixel == kWhite];
        if (longer != 0) {
            m_string = longer;
            return;
        }
        m_codes.write(m_string);
        if (m_entries < kMostEntries)
            longer = static_cast<std::uint16_t>(kFirstFree + m_entries++);
        else
            clearTable();
        m_string = colour;
    }

    void finish() {
        m_codes.write(m_string);
        m_codes.write(kEndOfInformation);
        m_codes.finish();
    }

private:
    static constexpr unsigned kClear = 256;
    static constexpr unsigned kEndOfInformation = 257;
    static constexpr unsigned kFirstFree = 258;
    static constexpr unsigned kMostEntries = 253;

    void clearTable() {
        m_codes.write(kClear);
        m_longer = {};
        m_entries = 0;
    }

    CodeWriter m_codes;
    /// The code of the string so far; a string of one pixel is its colour.
    unsigned m_string = 0;
    bool m_inRow = false;
    /// For a string's code, the codes of it with a black or white pixel behind it;
    /// 0 where the table holds none.
    std::array<std::array<std::uint16_t, 2>, kFirstFree + kMostEntries> m_longer{};
    unsigned m_entries = 0;
};

std::string headers(int width, int height) {
    constexpr char kGlobalTableOf256 = '\xF7';
    constexpr char kNoLocalTable = '\x07';
    constexpr char kCodeSize = 8;
    std::string bytes = "GIF87a";
    put16(bytes, width);
    put16(bytes, height);
    bytes.append({kGlobalTableOf256, '\0', '\0'});
    bytes += colourTable();
    bytes += '\x2C';
    put16(bytes, 0);
    put16(bytes, 0);
    put16(bytes, width);
    put16(bytes, height);
    bytes.append({kNoLocalTable, kCodeSize});
    return bytes;
}

} // namespace

std::string gifFile(const DotSurface &surface, const Progress &progress) {
    if (surface.isEmpty())
        return {};
    const int width = surface.width() * kPixelsPerDot;
    const int height = surface.height() * kPixelsPerDot;
    std::string bytes = headers(width, height);
    Compressor compressor(bytes);
    Reporter reporter(progress, static_cast<std::size_t>(height), kRowsBetweenReports, kRowsBetweenReports);
    for (int row = 0; row < height; ++row) {
        compressor.startRow();
        for (int x = 0; x < width; ++x)
            compressor.addPixel(surface.dot(x / kPixelsPerDot, row / kPixelsPerDot) ? kBlack : kWhite);
        if (!reporter.goOn(static_cast<std::size_t>(row) + 1))
            return {};
    }
    compressor.finish();
    bytes += kTrailer;
    return bytes;
}

} // namespace zolt
