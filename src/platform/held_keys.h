#pragma once

#include <QKeyEvent>
#include <QString>

namespace zolt {

/// What the text controls make of keys, so that typed characters become the held
/// characters of a document's bytes.

/// The held characters of a text from outside.
QString heldOutsideText(QStringView text);

/// Ctrl or Alt with a character is the window's, but for the control's own five
/// keys. Both together type characters on some keyboards.
bool belongsToWindow(const QKeyEvent &event);

/// Whether the key types something, Enter and Tab left out.
bool typesCharacters(const QKeyEvent &event);

/// The key as the control is to see it: with the held characters of what it types,
/// and Shift+Enter as Enter, which else would type a line separator.
QKeyEvent heldKey(const QKeyEvent &event);

} // namespace zolt
