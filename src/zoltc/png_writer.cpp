#include "zoltc/png_writer.h"

#include <array>
#include <new>
#include <string>
#include <zlib.h>

namespace zolt::cli {

namespace {

constexpr std::string_view kSignature = "\x89PNG\r\n\x1A\n";
/// One bit, grey, deflated, filters by row, not interlaced.
constexpr std::string_view kForm("\1\0\0\0\0", 5);
/// Pixels to the metre both ways: 100 to the inch, as programs take pictures of a screen.
constexpr std::uint32_t kPixelsAMetre = 3937;
constexpr char kInMetres = '\1';
/// Rows of one bit are best not filtered.
constexpr char kNoFilter = '\0';
/// What waits before it is deflated, and what a chunk holds.
constexpr std::size_t kPiece = std::size_t{1} << 16;
/// Takes half the time of zlib's own choice for files that are some 15 % larger at most.
constexpr int kLevel = 4;

std::string bigEndian(std::uint32_t number) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(number >> shift & 0xFF);
    return bytes;
}

const Bytef *bytesOf(std::string_view text) {
    return reinterpret_cast<const Bytef *>(text.data());
}

} // namespace

/// The pixels' stream, which becomes the data of one chunk after the other.
class PngWriter::Deflater {
public:
    Deflater() {
        if (::deflateInit(&m_stream, kLevel) != Z_OK)
            throw std::bad_alloc();
    }
    ~Deflater() { ::deflateEnd(&m_stream); }
    Deflater(const Deflater &) = delete;
    Deflater &operator=(const Deflater &) = delete;

    /// What waits to be deflated, to be added to.
    std::string &waiting() { return m_waiting; }

    /// Deflates what waits; `put` gets whole chunks, at the end also the last one.
    template <class Put> void deflate(bool atEnd, const Put &put) {
        // zlib takes a pointer that isn't const and writes nothing there.
        m_stream.next_in = const_cast<Bytef *>(bytesOf(m_waiting));
        m_stream.avail_in = static_cast<uInt>(m_waiting.size());
        int result = Z_OK;
        do {
            m_stream.next_out = m_chunk.data() + m_filled;
            m_stream.avail_out = static_cast<uInt>(m_chunk.size() - m_filled);
            result = ::deflate(&m_stream, atEnd ? Z_FINISH : Z_NO_FLUSH);
            m_filled = m_chunk.size() - m_stream.avail_out;
            if (m_filled == m_chunk.size() || result == Z_STREAM_END) {
                put(std::string_view(reinterpret_cast<const char *>(m_chunk.data()), m_filled));
                m_filled = 0;
            }
        } while (atEnd ? result != Z_STREAM_END : m_stream.avail_in > 0);
        m_waiting.clear();
    }

private:
    z_stream m_stream{};
    std::string m_waiting;
    std::array<Bytef, kPiece> m_chunk{};
    std::size_t m_filled = 0;
};

PngWriter::PngWriter(std::uint32_t width, std::uint32_t height, const ByteSink &sink)
    : m_sink(sink), m_deflater(std::make_unique<Deflater>()) {
    m_sink(kSignature);
    putChunk("IHDR", bigEndian(width) + bigEndian(height) + std::string(kForm));
    putChunk("pHYs", bigEndian(kPixelsAMetre) + bigEndian(kPixelsAMetre) + kInMetres);
}

PngWriter::~PngWriter() = default;

void PngWriter::addRow(std::string_view bits) {
    std::string &waiting = m_deflater->waiting();
    (waiting += kNoFilter) += bits;
    if (waiting.size() >= kPiece)
        m_deflater->deflate(false, [this](std::string_view data) { putChunk("IDAT", data); });
}

void PngWriter::finish() {
    m_deflater->deflate(true, [this](std::string_view data) { putChunk("IDAT", data); });
    putChunk("IEND", {});
}

void PngWriter::putChunk(std::string_view type, std::string_view data) {
    m_sink(bigEndian(static_cast<std::uint32_t>(data.size())));
    m_sink(type);
    m_sink(data);
    uLong check = ::crc32(0, bytesOf(type), static_cast<uInt>(type.size()));
    if (!data.empty()) // A null pointer would begin anew.
        check = ::crc32(check, bytesOf(data), static_cast<uInt>(data.size()));
    m_sink(bigEndian(static_cast<std::uint32_t>(check)));
}

} // namespace zolt::cli
