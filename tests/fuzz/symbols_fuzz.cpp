#include "fuzz/require.h"
#include "symbols/symbol_cell.h"
#include "symbols/symbol_list.h"

#include <cstddef>
#include <cstdint>

namespace {

using zolt::SymbolList;
using zolt::test::require;

void checkCells(const SymbolList &list) {
    for (int i = 1; i <= list.NumeroDeSimbolos() && i <= 16; ++i) {
        const zolt::CellDots dots = zolt::Transferir(list.ExpressoesDosSimbolos(i));
        const std::string cell = zolt::Expressao(dots);
        require(zolt::Transferir(cell).rows == dots.rows && zolt::Thumbnail(cell).rows == dots.rows,
                "other dots after a round trip");
        require(zolt::inverted(zolt::inverted(dots)).rows == dots.rows, "other dots inverted twice");
    }
}

/// Edits that take each other back, at a symbol that may not be there.
void checkEdits(const SymbolList &before, int i) {
    SymbolList list = before;
    if (list.swap(i))
        list.swap(i);
    if (list.duplicate(i))
        list.remove(i + 1);
    require(list == before, "an edit that isn't taken back");
    if (!list.replace(i, "a\r\nb", "\n"))
        return;
    require(list.NomesDosSimbolos(i) == "a  b" && list.ExpressoesDosSimbolos(i) == " ", "a line end kept");
    SymbolList again;
    require(again.load(list.save()).complete && again.NumeroDeSimbolos() == list.NumeroDeSimbolos(),
            "a list of another length after its edit");
}

} // namespace

/// A list that is read comes back from its own file, and grows only by what was read.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string_view file(reinterpret_cast<const char *>(data), size);
    SymbolList list;
    const zolt::SymbolsRead read = list.load(file);
    require(list.NumeroDeSimbolos() == read.count && read.count <= SymbolList::kMostSymbols,
            "not as many symbols as were counted");
    SymbolList again;
    require(again.load(list.save()).complete && again == list, "another list after a round trip");
    checkCells(list);
    if (read.count > 64)
        return 0;
    checkEdits(list, size > 0 ? data[size - 1] % (read.count + 2) : 0);
    require(list.import(file).count == read.count && list.NumeroDeSimbolos() == 2 * read.count,
            "another number of symbols at the second time");
    return 0;
}
