#pragma once

#include <optional>
#include <vector>

namespace zolt {

/// A selection by the positions of a QTextCursor, from 0.
struct PaneSelection {
    int anchor = 0;
    int caret = 0;

    bool operator==(const PaneSelection &) const = default;
};

/// The selections before and after each undo step of a document, which Qt
/// doesn't keep. Steps are known by the document's undo depth behind them, the
/// number of its available undo commands: several commands can be one step, and
/// typing grows the last step without a change of depth.
class UndoSelections {
public:
    void clear();
    /// The depth at which the document stands, as far as is known here.
    int depth() const { return m_depth; }

    /// A change that is no undo or redo has led to `depth`.
    void recordChange(int depth, PaneSelection before, PaneSelection after);
    /// The program has put the caret elsewhere as a part of the last change.
    void setLatestAfter(PaneSelection after);
    /// More commands were joined to the last step, which now ends at `depth`.
    void extendLatest(int depth, PaneSelection after);

    /// An undo or redo has led to `depth`: the selection to show there.
    std::optional<PaneSelection> undoneTo(int depth);
    std::optional<PaneSelection> redoneTo(int depth);

private:
    struct Step {
        int depth;
        PaneSelection before;
        PaneSelection after;
    };

    void dropStepsBehind(int depth);

    std::vector<Step> m_steps; // by rising depth
    int m_depth = 0;           // where the document stands now
};

} // namespace zolt
