#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace zolt {

/// Takes the next bytes of a file or a text. Whoever owns it keeps its errors.
using ByteSink = std::function<void(std::string_view piece)>;

/// Gathers small pieces into larger ones for a sink.
class PieceBuffer {
public:
    explicit PieceBuffer(ByteSink sink) : m_sink(std::move(sink)) {}

    /// What waits, to be added to.
    std::string &bytes() { return m_bytes; }
    /// Hands on what waits if it is worth it.
    void handOnIfLarge() {
        if (m_bytes.size() >= kPiece)
            handOn();
    }
    void handOn() {
        m_sink(m_bytes);
        m_bytes.clear();
    }

    static constexpr std::size_t kPiece = std::size_t{1} << 16;

private:
    ByteSink m_sink;
    std::string m_bytes;
};

} // namespace zolt
