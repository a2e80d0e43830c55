#include "fuzz/require.h"
#include "platform/byte_mime.h"
#include "platform/held_text.h"

#include <QMimeData>
#include <QUrl>
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace {

using zolt::test::require;

bool hasBareLineEnd(std::string_view bytes) {
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes.substr(i, 2) == "\r\n")
            ++i;
        else if (bytes[i] == '\r' || bytes[i] == '\n')
            return true;
    }
    return false;
}

/// A copy of the program's own, taken by the program and by others.
void checkOwnCopy(const std::string &bytes) {
    const std::unique_ptr<QMimeData> copy(zolt::mimeOfBytes(bytes));
    require(zolt::offersBytes(*copy) && zolt::bytesOfMime(*copy) == bytes, "another text from the own copy");
    require(zolt::bytesOfHeldText(zolt::heldText(bytes)) == bytes, "another text after it was held");
    const std::string taken = zolt::bytesOfOutsideText(zolt::outsideText(bytes));
    require(zolt::bytesOfOutsideText(zolt::outsideText(taken)) == taken, "a text that others change twice");
}

/// A copy of another program's with one flavour.
void checkForeignCopy(const char *flavour, const QByteArray &bytes) {
    QMimeData copy;
    copy.setData(QString::fromLatin1(flavour), bytes);
    if (!zolt::offersBytes(copy))
        return;
    require(copy.hasText(), "a text in a copy without one");
    const QString text = copy.text();
    const bool holdsBytes = std::any_of(text.begin(), text.end(), [](QChar c) {
        return c.unicode() >= zolt::kHeldByte && c.unicode() < zolt::kHeldByte + 256;
    });
    require(holdsBytes || !hasBareLineEnd(zolt::bytesOfMime(copy)), "half a line end");
}

} // namespace

/// The bytes as what another program has copied, in the flavours that windows take or
/// refuse, and as a copy of the program's own.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char *>(data), size);
    checkOwnCopy(bytes);
    const QByteArray flavour = QByteArray::fromStdString(bytes);
    for (const char *name : {"text/plain", "text/plain;charset=utf-16", "text/uri-list"})
        checkForeignCopy(name, flavour);
    QMimeData page;
    page.setData(QStringLiteral("text/html"), flavour);
    require(!zolt::offersBytes(page), "a page offered as text");
    return 0;
}
