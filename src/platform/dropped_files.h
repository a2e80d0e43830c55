#pragma once

#include <QString>
#include <string>
#include <vector>

class QDropEvent;
class QMimeData;

namespace zolt {

/// The files that a drag carries.
struct DroppedFiles {
    /// Those of this machine, whole from the root, as file system bytes.
    std::vector<std::string> paths;
    /// How many addresses of other places there are.
    int others = 0;
};

DroppedFiles filesOf(const QMimeData &source);

/// Accepts a drag or a drop as one that copies: a file that the other program would move
/// must stay. One that can't copy is refused.
void takeAsCopy(QDropEvent &event);

} // namespace zolt
