#pragma once

#include <QImage>

class QIODevice;

namespace zolt {

struct PictureHeader;

/// Decodes an icon's image of which the mask alone says what shows: 24 bits to the
/// pixel, or 32 of which none tells an alpha. What the mask hides is transparent. A null
/// image for any other, and if the file ends before the mask does; the device stands
/// where it stood.
/// Format: https://learn.microsoft.com/previous-versions/ms997538(v=msdn.10)
QImage maskedIconImage(QIODevice &device, const PictureHeader &header);

} // namespace zolt
