#pragma once

#include "graphic/rich_text_builder.h"

#include <QBuffer>
#include <QImage>

namespace zolt {

inline RichPicture drawnPicture() {
    QImage image(264, 60, QImage::Format_Mono);
    image.fill(0);
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return {RichPicture::Kind::Png, png.toStdString(), 264 * 15, 60 * 15};
}

/// 1 MB of text in two fonts: 37 000 paragraphs, and that many pictures.
inline RichText richDocument(int pictures = 500) {
    constexpr int paragraphs = 37'000;
    RichTextBuilder builder;
    const CharFormat plain;
    const CharFormat bold{.font = builder.text().fontIndex("ZOLTBold")};
    const RichPicture drawn = drawnPicture();
    for (int i = 0; i < paragraphs; ++i) {
        if (i > 0)
            builder.endParagraph();
        builder.append("A line of text, ", plain);
        builder.append("a bold word", i % 4 == 0 ? bold : plain);
        if (pictures > 0 && i % (paragraphs / pictures) == 0)
            builder.append(drawn, plain);
    }
    return std::move(builder.text());
}

} // namespace zolt
