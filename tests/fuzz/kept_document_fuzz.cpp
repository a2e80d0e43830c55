#include "core/kept_document.h"
#include "fuzz/require.h"

#include <cstddef>
#include <cstdint>

namespace {

using zolt::KeptDocument;
using zolt::test::require;

void checkRoundTrip(KeptDocument document) {
    document.isDamaged = false;
    const std::string file = zolt::keptFile(document);
    require(zolt::readKeptFile(file) == document, "another document after a round trip");
    // One byte of the document changed, and then its end lost.
    for (const std::size_t back : {std::size_t{2}, document.bytes.size() + 1}) {
        if (document.bytes.empty())
            break;
        std::string changed = file;
        changed[changed.size() - back] ^= 1;
        const auto read = zolt::readKeptFile(changed);
        require(read && read->isDamaged, "a change that isn't seen");
        const auto cut = zolt::readKeptFile(std::string_view(file).substr(0, file.size() - back));
        require(cut && cut->isDamaged && document.bytes.starts_with(cut->bytes),
                "a lost end that isn't seen");
    }
}

} // namespace

/// A document that is given back comes back from its own file, and damage is seen.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char *>(data), size);
    if (const auto kept = zolt::readKeptFile(bytes)) {
        require(kept->bytes.size() <= size && kept->caret >= 0, "a document from nowhere");
        checkRoundTrip(*kept);
    }
    KeptDocument document;
    document.path = bytes.substr(0, size / 3);
    document.caption = bytes.substr(size / 3, size / 3);
    document.bytes = bytes;
    checkRoundTrip(document);
    return 0;
}
