#include "symbols/symbol_list.h"

#include "core/file.h"
#include "symbols/symbol_cell.h"

#include <gtest/gtest.h>
#include <set>

namespace zolt {
namespace {

/// The list as one text: title=expression, with a bar between two symbols.
std::string contents(const SymbolList &list) {
    std::string text;
    for (int i = 1; i <= list.NumeroDeSimbolos(); ++i)
        text += (i > 1 ? "|" : "") + list.NomesDosSimbolos(i) + "=" + list.ExpressoesDosSimbolos(i);
    return text;
}

SymbolList abc() {
    SymbolList list;
    for (const char *title : {"a", "b", "c"})
        list.add(title, std::string(title) + title);
    return list;
}

TEST(SymbolFile, IsLoadedAsFarAsItGoes) {
    const struct {
        std::string_view file;
        std::string_view contents;
        bool complete;
    } cases[] = {{" 2 \r\na\r\nA\r\nb\r\nB\r\n", "a=A|b=B", true},

                 {"2\r\na\r\nA\r\nb\r\nB", "a=A|b=B", true},
                 {" 0 \r\n", "", true},

                 {" 1 \r\na\r\nA\r\nb\r\nB\r\n", "a=A", true},
                 {"1\na\nA\n", "a=A", true},
                 // Commas, quotes and blanks shift nothing.

                 {" 2 \r\n  left, right \r\nA\r\n\"q\r\n\r\n", "left, right =A|\"q=", true},
                 // Lines are missing.

                 {" 3 \r\na\r\nA\r\nb", "a=A|b=|=", false},
                 {" 2 ", "=|=", false},

                 {" 2000000000 \r\na\r\nA\r\nb\r\n", "a=A|b=", false},

                 {"99999999999999999999\r\na\r\nA\r\n", "a=A", false},
                 // There is no count.

                 {"", "", false},
                 {"a\r\nA\r\n", "", false},

                 {" -1 \r\na\r\nA\r\n", "", false}};
    for (const auto &one : cases) {
        SymbolList list;
        const SymbolsRead read = list.load(one.file);
        EXPECT_EQ(contents(list), one.contents);
        EXPECT_EQ(read.count, list.NumeroDeSimbolos());
        EXPECT_EQ(read.complete, one.complete) << one.file;
    }
}

TEST(SymbolFile, HasACountLineAndTwoLinesASymbol) {
    SymbolList list;
    EXPECT_EQ(list.save(), " 0 \r\n");
    list.add("Left, \"right\"", "\x9EZ");
    list.add("two\r\nlines", "");
    const std::string file = list.save();
    EXPECT_EQ(file, " 2 \r\nLeft, \"right\"\r\n\x9EZ\r\ntwo  lines\r\n\r\n");
    SymbolList again;
    EXPECT_TRUE(again.load(file).complete);
    EXPECT_EQ(again, list);
}

TEST(SymbolList, RefusesNumbersThatNameNoSymbol) {
    SymbolList list = abc();
    for (const int i : {-1, 0, 4})
        EXPECT_FALSE(list.replace(i, "", "") || list.remove(i) || list.duplicate(i) || list.swap(i)) << i;
    EXPECT_FALSE(list.swap(3));
    EXPECT_EQ(list, abc());
}

TEST(SymbolList, TakesNoMoreThanItsCountCanTell) {
    SymbolList list;
    EXPECT_FALSE(list.load(" 32767 \r\na\r\nA\r\n").complete);
    EXPECT_EQ(list.NumeroDeSimbolos(), SymbolList::kMostSymbols);
    EXPECT_FALSE(list.add("", ""));
    EXPECT_FALSE(list.duplicate(1));
    list.remove(1);
    const SymbolsRead read = list.import(abc().save());
    EXPECT_EQ(read.count, 1);
    EXPECT_FALSE(read.complete);
    EXPECT_EQ(list.NomesDosSimbolos(SymbolList::kMostSymbols), "a");
}

TEST(DefaultSymbols, AreAHundredDifferentCells) {
    const FileContents file = readFile(ZOLT_DEFAULT_SYMBOLS);
    ASSERT_TRUE(file.ok()) << file.reason;
    SymbolList list;
    EXPECT_TRUE(list.load(file.bytes).complete);
    EXPECT_EQ(list.NumeroDeSimbolos(), 100);
    EXPECT_EQ(list.save(), file.bytes);
    std::set<std::string> titles;
    std::set<std::string> cells;
    for (int i = 1; i <= list.NumeroDeSimbolos(); ++i) {
        titles.insert(list.NomesDosSimbolos(i));
        cells.insert(Expressao(Transferir(list.ExpressoesDosSimbolos(i))));
        EXPECT_EQ(list.ExpressoesDosSimbolos(i), Expressao(Transferir(list.ExpressoesDosSimbolos(i))));
    }
    EXPECT_EQ(titles.size(), 100u);
    EXPECT_EQ(cells.size(), 100u);
}

} // namespace
} // namespace zolt
