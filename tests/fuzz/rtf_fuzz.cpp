#include "fuzz/require.h"
#include "graphic/rtf_reader.h"
#include "graphic/rtf_writer.h"

#include <cstddef>
#include <cstdint>

namespace {

using zolt::test::require;

void checkRuns(const zolt::RichText &text) {
    for (const zolt::Paragraph &paragraph : text.paragraphs) {
        for (const zolt::Run &run : paragraph.runs) {
            require(run.format.font < text.fonts.size(), "a font without a name");
            const std::string_view characters = run.content.characters();
            if (const zolt::RichPicture *picture = run.content.picture())
                require(picture->width > 0 && picture->height > 0, "a picture without a size");
            else
                require(!characters.empty(), "an empty run");
            require(characters.find("\r\n") == std::string_view::npos, "a line end in a run");
        }
    }
}

} // namespace

/// Whatever is read holds together, and the writer's form of it reads the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    std::string source(reinterpret_cast<const char *>(data), size);
    if (!zolt::isRtf(source))
        source.insert(0, "{\\rtf1 ");
    const zolt::RichText text = zolt::richTextFromRtf(source);
    require(!text.paragraphs.empty(), "no paragraph");
    checkRuns(text);
    require(zolt::richTextFromRtf(zolt::rtfFromRichText(text)) == text, "another text after a round trip");
    return 0;
}
