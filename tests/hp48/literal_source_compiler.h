#pragma once

#include "graphic/rich_text.h"

#include <functional>
#include <string>

namespace zolt::test {

/// The calculator's string of a rich text, made slowly and step by step: the text is
/// a row of characters with fonts that is searched and changed in place. `kind` is 1
/// normal, 2 partial or 3 total; `cells` gives the image text of a picture.
std::string literalSource(const RichText &text, int kind,
                          const std::function<std::string(const RichPicture &)> &cells);

} // namespace zolt::test
