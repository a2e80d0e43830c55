#pragma once

#include <QKeyEvent>
#include <QString>
#include <functional>
#include <string_view>

namespace zolt {

/// What the text controls make of keys, so that typed characters become the
/// characters in which a document's bytes stand.

/// Gives the characters in which a control holds bytes.
using CharactersOf = std::function<QString(std::string_view bytes)>;

/// Alt and a digit of the keypad: a part of the number of a byte.
bool isByteDigit(const QKeyEvent &event);

/// Ctrl or Alt with a character is the window's, but for the control's own five
/// keys. Both together type characters on some keyboards.
bool belongsToWindow(const QKeyEvent &event);

/// Whether the key types something, Enter and Tab left out.
bool typesCharacters(const QKeyEvent &event);

/// The key as the control is to see it: with the characters of the bytes that it types,
/// and Shift+Enter as Enter, which else would type a line separator.
QKeyEvent heldKey(const QKeyEvent &event, const CharactersOf &characters);

} // namespace zolt
