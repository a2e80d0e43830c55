#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zolt {

/// A drawn character: what the list shows, and the text that goes into a document.
struct Symbol {
    std::string title;
    std::string expression;

    bool operator==(const Symbol &) const = default;
};

/// What reading a symbol file gave.
struct SymbolsRead {
    /// How many symbols the list gained.
    int count = 0;
    /// False if the file has no count, fewer lines than its count asks for, or more
    /// symbols than the list has room for.
    bool complete = false;
};

/// The list of symbols. Symbols are numbered from 1, in the order of the list on
/// the screen and in the file; titles needn't be unique. Neither a title nor an
/// expression holds a line end: CR and LF become blanks on the way in.
///
/// The file is bytes in lines that end at CR LF: the number of symbols between two
/// blanks, then for each symbol a line with its title and one with its expression.
/// It has no quoting and needs none, because it is read by lines: commas and quotes
/// are characters like any other. Only blanks at the start of a line get lost.
class SymbolList {
public:
    /// The count is a 16-bit number in the file format's home.
    static constexpr int kMostSymbols = 32767;

    int NumeroDeSimbolos() const { return static_cast<int>(m_symbols.size()); }
    /// The title and the expression of symbol i; empty for a number that names none.
    const std::string &NomesDosSimbolos(int i) const { return symbol(i).title; }
    const std::string &ExpressoesDosSimbolos(int i) const { return symbol(i).expression; }
    /// The title that a new symbol starts with: "Symbol" and its number to be.
    std::string defaultTitle() const;

    /// Replaces the list by a file's contents. A file that ends early gives the
    /// symbols that it has, and empty ones up to its count; where the count is beyond
    /// kMostSymbols no empty ones are added, so that it takes no memory to speak of.
    /// A file that can't give any (its first line holds no number or a negative one)
    /// leaves the list as it is.
    SymbolsRead load(std::string_view file);
    /// Adds a file's symbols behind those of the list, by the same rules.
    SymbolsRead import(std::string_view file);
    /// The file's bytes.
    std::string save() const;

    // Each answers false, with nothing changed, if `i` names no symbol or a longer
    // list would pass kMostSymbols.
    bool add(std::string_view title, std::string_view expression);
    bool replace(int i, std::string_view title, std::string_view expression);
    bool remove(int i);
    /// Puts a copy right behind symbol i.
    bool duplicate(int i);
    /// Exchanges symbols i and i + 1.
    bool swap(int i);
    void clear() { m_symbols.clear(); }

    bool operator==(const SymbolList &) const = default;

private:
    bool has(int i) const { return i >= 1 && i <= NumeroDeSimbolos(); }
    bool isFull() const { return NumeroDeSimbolos() >= kMostSymbols; }
    const Symbol &symbol(int i) const;
    auto at(int i) { return m_symbols.begin() + (i - 1); }

    std::vector<Symbol> m_symbols;
};

} // namespace zolt
