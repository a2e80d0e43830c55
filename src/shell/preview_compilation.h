#pragma once

#include "hp48/preview_compiler.h"

namespace zolt {

class RichTextBox;

/// Compiles TextoPrevisualizar under WaitFrm, with the frame disabled, puts the
/// rich text into `box`, locked, and the menu entries into the shared values. False
/// if CancelarOperação was set on the way. The clipboard isn't touched.
bool compileInto(RichTextBox &box, PreviewFlavour flavour);

/// Puts the caret where the line of menu entry `index`, from 0, ends: it scrolls
/// into view. `length` characters are selected there.
void goToEntry(RichTextBox &box, int index, int length);

} // namespace zolt
