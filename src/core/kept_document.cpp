#include "core/kept_document.h"

#include <algorithm>
#include <charconv>

namespace zolt {

namespace {

constexpr std::string_view kForm = "ZOLT kept document 1\n";

/// FNV-1a, 64 bits.
std::uint64_t checksum(std::string_view bytes) {
    std::uint64_t sum = 14695981039346656037U;
    for (const char byte : bytes)
        sum = (sum ^ static_cast<unsigned char>(byte)) * 1099511628211U;
    return sum;
}

void append(std::string &file, std::string_view name, std::string_view bytes) {
    file.append(name).append(" ").append(std::to_string(bytes.size())).append("\n");
    file.append(bytes).append("\n");
}

template <class Number> bool toNumber(std::string_view text, Number &number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

/// Reads the fields of a file in their order.
class Fields {
public:
    explicit Fields(std::string_view file) : m_left(file) {}

    /// The bytes of the next field, if it has this name; of one that is cut off, those
    /// that are there. False if it is another one.
    bool next(std::string_view name, std::string_view &bytes) {
        std::size_t length = 0;
        const std::size_t lineEnd = m_left.find('\n');
        if (lineEnd == std::string_view::npos || !m_left.starts_with(name) || m_left[name.size()] != ' ' ||
            !toNumber(m_left.substr(name.size() + 1, lineEnd - name.size() - 1), length))
            return false;
        m_left.remove_prefix(lineEnd + 1);
        bytes = m_left.substr(0, length);
        m_isWhole = m_isWhole && bytes.size() == length;
        m_left.remove_prefix(std::min(bytes.size() + 1, m_left.size()));
        return true;
    }
    bool next(std::string_view name, std::string &bytes) {
        std::string_view view;
        const bool is = next(name, view);
        bytes = view;
        return is;
    }
    template <class Number> bool nextNumber(std::string_view name, Number &number) {
        std::string_view text;
        return next(name, text) && toNumber(text, number);
    }
    /// Whether no field so far was cut off.
    bool isWhole() const { return m_isWhole; }

private:
    std::string_view m_left;
    bool m_isWhole = true;
};

} // namespace

std::string keptFile(const KeptDocument &document) {
    std::string file(kForm);
    file.reserve(document.bytes.size() + document.path.size() + document.caption.size() + 256);
    append(file, "edition", std::to_string(document.edition));
    append(file, "path", document.path);
    append(file, "caption", document.caption);
    append(file, "time", std::to_string(document.time));
    append(file, "pane", std::to_string(document.pane));
    append(file, "caret", std::to_string(document.caret));
    append(file, "checksum", std::to_string(checksum(document.bytes)));
    append(file, "document", document.bytes);
    return file;
}

std::optional<KeptDocument> readKeptFile(std::string_view file) {
    if (!file.starts_with(kForm))
        return std::nullopt;
    Fields fields(file.substr(kForm.size()));
    KeptDocument document;
    std::uint64_t sum = 0;
    const bool hasFields =
        fields.nextNumber("edition", document.edition) && fields.next("path", document.path) &&
        fields.next("caption", document.caption) && fields.nextNumber("time", document.time) &&
        fields.nextNumber("pane", document.pane) && fields.nextNumber("caret", document.caret) &&
        fields.nextNumber("checksum", sum) && fields.isWhole();
    const bool isKnown = (document.edition == 1 || document.edition == 2) &&
                         (document.pane == 1 || document.pane == 2) && document.caret >= 0;
    if (!hasFields || !isKnown || !fields.next("document", document.bytes))
        return std::nullopt;
    document.isDamaged = !fields.isWhole() || checksum(document.bytes) != sum;
    return document;
}

} // namespace zolt
