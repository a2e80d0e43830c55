#include "symbols/symbol_list.h"

#include "core/codes.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

namespace zolt {

namespace {

std::string oneLine(std::string_view text) {
    std::string line(text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return line;
}

/// Hands out the lines of a file. Lines end at CR LF, at CR or at LF, since files
/// also come through editors of other systems.
class LineReader {
public:
    explicit LineReader(std::string_view file) : m_rest(file) {}

    /// The next line without the blanks at its start, or nothing at the file's end.
    std::optional<std::string_view> field() {
        if (m_rest.empty())
            return std::nullopt;
        const std::size_t end = std::min(m_rest.find_first_of(kLineEnd), m_rest.size());
        std::string_view line = m_rest.substr(0, end);
        m_rest.remove_prefix(end);
        m_rest.remove_prefix(m_rest.starts_with(kLineEnd) ? kLineEnd.size()
                                                          : std::min<std::size_t>(1, m_rest.size()));
        line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
        return line;
    }

private:
    std::string_view m_rest;
};

/// The number that a count line begins with. A number too large for the machine
/// counts as one symbol too many; nothing for a negative number or none.
std::optional<int> countOf(std::string_view field) {
    if (field.starts_with('+'))
        field.remove_prefix(1);
    int count = 0;
    const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), count);
    if (error == std::errc::invalid_argument || field.starts_with('-'))
        return std::nullopt;
    return error == std::errc::result_out_of_range ? SymbolList::kMostSymbols + 1 : count;
}

} // namespace

const Symbol &SymbolList::symbol(int i) const {
    static const Symbol kNone;
    return has(i) ? m_symbols[static_cast<std::size_t>(i - 1)] : kNone;
}

std::string SymbolList::defaultTitle() const {
    return "Symbol" + std::to_string(NumeroDeSimbolos() + 1);
}

SymbolsRead SymbolList::load(std::string_view file) {
    SymbolList list;
    const SymbolsRead read = list.import(file);
    if (read.count > 0 || read.complete)
        *this = std::move(list);
    return read;
}

SymbolsRead SymbolList::import(std::string_view file) {
    LineReader lines(file);
    const std::optional<int> count = countOf(lines.field().value_or(""));
    if (!count)
        return {};
    const int room = kMostSymbols - NumeroDeSimbolos();
    SymbolsRead read{0, *count <= room};
    for (; read.count < std::min(*count, room); ++read.count) {
        const auto title = lines.field();
        const auto expression = lines.field();
        if (!expression)
            read.complete = false;
        if (!title && *count > room)
            break;
        m_symbols.push_back({std::string(title.value_or("")), std::string(expression.value_or(""))});
    }
    return read;
}

std::string SymbolList::save() const {
    std::string file(" ");
    file.append(std::to_string(m_symbols.size())).append(" ").append(kLineEnd);
    for (const auto &[title, expression] : m_symbols)
        file.append(title).append(kLineEnd).append(expression).append(kLineEnd);
    return file;
}

bool SymbolList::add(std::string_view title, std::string_view expression) {
    if (isFull())
        return false;
    m_symbols.push_back({oneLine(title), oneLine(expression)});
    return true;
}

bool SymbolList::replace(int i, std::string_view title, std::string_view expression) {
    if (!has(i))
        return false;
    *at(i) = {oneLine(title), oneLine(expression)};
    return true;
}

bool SymbolList::remove(int i) {
    if (!has(i))
        return false;
    m_symbols.erase(at(i));
    return true;
}

bool SymbolList::duplicate(int i) {
    if (!has(i) || isFull())
        return false;
    Symbol copy = *at(i);
    m_symbols.insert(at(i + 1), std::move(copy));
    return true;
}

bool SymbolList::swap(int i) {
    if (!has(i) || !has(i + 1))
        return false;
    std::swap(*at(i), *at(i + 1));
    return true;
}

} // namespace zolt
