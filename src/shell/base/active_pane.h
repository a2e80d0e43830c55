#pragma once

#include <string_view>

namespace zolt {

class TextPane;

/// The pane in use, in which tools beside the document read and write; null while
/// no document is open.
TextPane *activePane();

/// Gives a pane the keyboard, also from another window.
void takeFocus(TextPane &pane);

/// Puts bytes in the place of the selection of the pane in use and gives it the
/// focus back.
void insertIntoActivePane(std::string_view bytes);

} // namespace zolt
