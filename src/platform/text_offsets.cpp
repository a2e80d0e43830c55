#include "platform/text_offsets.h"

#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>

namespace zolt {

qsizetype textLength(const QTextDocument &document) {
    // Qt counts one more than the text's characters, and a line end as one.
    return qsizetype{document.characterCount()} - 1 + document.blockCount() - 1;
}

int positionOfOffset(const QTextDocument &document, qsizetype offset) {
    const qsizetype wanted = std::clamp<qsizetype>(offset, 0, textLength(document));
    // The last block that starts at or before the offset: each block before one
    // adds a character that Qt doesn't count.
    int low = 0;
    int high = document.blockCount() - 1;
    while (low < high) {
        const int middle = low + (high - low + 1) / 2;
        if (qsizetype{document.findBlockByNumber(middle).position()} + middle <= wanted)
            low = middle;
        else
            high = middle - 1;
    }
    const QTextBlock block = document.findBlockByNumber(low);
    const qsizetype inBlock = wanted - block.position() - low;
    return block.position() + static_cast<int>(std::min<qsizetype>(inBlock, block.length() - 1));
}

qsizetype offsetOfPosition(const QTextDocument &document, int position) {
    return qsizetype{position} + document.findBlock(position).blockNumber();
}

} // namespace zolt
