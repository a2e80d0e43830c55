#pragma once

#include <QtGlobal>

class QTextDocument;

namespace zolt {

/// Between the positions of a Qt text document, in which a line end is one, and the
/// offsets of the text controls, in which it is two, CR and LF. Both from 0. None
/// of these reads the text.

/// Characters of the text.
qsizetype textLength(const QTextDocument &document);
/// Offsets outside the text give the nearest inside; one between CR and LF gives
/// the position before the line end.
int positionOfOffset(const QTextDocument &document, qsizetype offset);
qsizetype offsetOfPosition(const QTextDocument &document, int position);

} // namespace zolt
