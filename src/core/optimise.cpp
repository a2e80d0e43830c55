#include "core/optimise.h"

#include "core/codes.h"

namespace zolt {

namespace {

/// The bytes that a blank cell is made of.
constexpr std::string_view kBlankCellBytes = "\x9E"
                                             "0";

/// Appends `text` with `by` in place of each blank cell, found from the left: what
/// joins behind a cell that went is not looked at again.
void appendWithoutBlankCells(std::string &output, std::string_view text, std::string_view by) {
    std::size_t done = 0;
    for (std::size_t cell = text.find(kBlankCell); cell != std::string_view::npos;
         cell = text.find(kBlankCell, done)) {
        output.append(text.substr(done, cell - done)).append(by);
        done = cell + kBlankCell.size();
    }
    output.append(text.substr(done));
}

/// The first byte of a line's end that is made of nothing but the bytes of blank cells.
std::size_t blankEnd(std::string_view line) {
    const std::size_t last = line.find_last_not_of(kBlankCellBytes);
    return last == std::string_view::npos ? 0 : last + 1;
}

std::string withoutBlankEnds(std::string_view text) {
    std::string output;
    output.reserve(text.size());
    while (true) {
        const std::size_t lineEnd = text.find(kLineEnd);
        const std::string_view line = text.substr(0, lineEnd);
        const std::size_t end = blankEnd(line);
        output.append(line.substr(0, end));
        appendWithoutBlankCells(output, line.substr(end), {});
        if (lineEnd == std::string_view::npos)
            return output;
        output.append(kLineEnd);
        text.remove_prefix(lineEnd + kLineEnd.size());
    }
}

} // namespace

std::string optimiseImages(std::string_view text, Optimisation kind) {
    std::string optimised = withoutBlankEnds(text);
    if (kind == Optimisation::Partial)
        return optimised;
    std::string total;
    total.reserve(optimised.size());
    appendWithoutBlankCells(total, optimised, " ");
    return total;
}

} // namespace zolt
