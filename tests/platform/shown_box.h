#pragma once

#include "graphic/rich_text_builder.h"
#include "graphic/rich_text_samples.h"
#include "platform/rich_text_box.h"
#include "platform/shown.h"

#include <QImage>

namespace zolt::test {

using ShownBox = Shown<RichTextBox>;

/// "plain", "bold" in ZOLTBold and red, a picture, "end" on the next line.
inline RichText sample() {
    RichTextBuilder builder;
    const std::uint16_t bold = builder.text().fontIndex("ZOLTBold");
    builder.append("plain", {});
    builder.append("bold", {.font = bold, .halfPoints = 28, .colour = 0xFF, .italic = true});
    builder.append(samplePicture(RichPicture::Kind::Png), {});
    builder.endParagraph();
    builder.append("end", {});
    return builder.text();
}

inline QImage grab(RichTextBox &box) {
    return box.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

} // namespace zolt::test
