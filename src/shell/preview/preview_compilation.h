#pragma once

#include "hp48/preview_compiler.h"

class QEvent;

namespace zolt {

class RichTextBox;

/// Compiles TextoPrevisualizar under WaitFrm, with the frame disabled, puts the
/// rich text into `box`, locked, and the menu entries into the shared values. False
/// if CancelarOperação was set on the way, or `box` has gone. The clipboard isn't
/// touched.
bool compileInto(RichTextBox &box, PreviewFlavour flavour);

/// Puts the caret where the line of menu entry `index`, from 0, ends, and that line
/// first in sight. `length` characters are selected there.
void goToEntry(RichTextBox &box, int index, int length);

/// Whether an event in a preview's text asks for the list of its menu entries: Enter,
/// or the keyboard's menu key.
bool asksForEntries(const QEvent &event);

} // namespace zolt
