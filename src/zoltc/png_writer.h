#pragma once

#include "core/byte_sink.h"

#include <cstdint>
#include <memory>
#include <string_view>

namespace zolt::cli {

/// Writes a PNG file (RFC 2083) of one bit to the pixel, grey: a bit that is set is white.
/// The rows come from the top and don't stand in memory together.
class PngWriter {
public:
    PngWriter(std::uint32_t width, std::uint32_t height, const ByteSink &sink);
    ~PngWriter();
    PngWriter(const PngWriter &) = delete;
    PngWriter &operator=(const PngWriter &) = delete;

    /// The leftmost pixel stands in the highest bit of the first byte.
    void addRow(std::string_view bits);
    /// To be called behind the last row.
    void finish();

private:
    class Deflater;

    void putChunk(std::string_view type, std::string_view data);

    ByteSink m_sink;
    std::unique_ptr<Deflater> m_deflater;
};

} // namespace zolt::cli
