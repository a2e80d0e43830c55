#pragma once

class QWidget;

namespace zolt {

/// Asks whether a document may go to the "textual" or "graphical" edition though it may
/// lose some of its looks there.
bool mayLoseFormat(QWidget *owner, const char *edition);

} // namespace zolt
