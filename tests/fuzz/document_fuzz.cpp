#include "fuzz/require.h"
#include "hp48/literal_compiler.h"
#include "hp48/preview_compiler.h"
#include "hp48/preview_json.h"
#include "hp48/screen.h"

#include <cstddef>
#include <cstdint>

namespace {

using zolt::PreviewFlavour;
using zolt::test::require;

/// The slow compiler takes the square of the length.
constexpr std::size_t kLongestForTheSlowWay = 400;

void checkParts(const zolt::Preview &preview) {
    const zolt::StyledText &styled = preview.styled;
    require(plainText(preview.text) == styled.characters, "two forms of one text");
    require(styled.spans.empty() == styled.characters.empty(), "characters without a style");
    for (const zolt::PictureBlock &picture : styled.pictures)
        require(styled.characters.at(picture.position) == zolt::kPicturePlace && picture.columns > 0,
                "a picture without a place");
    const std::vector<zolt::ScreenLine> lines = screenLines(styled);
    require(lines.size() == preview.text.paragraphs.size(), "a paragraph that is no line");
    for (const zolt::MenuEntry &entry : preview.entries)
        require(styled.characters[lines.at(static_cast<std::size_t>(entry.line - 1)).begin] == '*',
                "an entry that is no line");
    bool hasJson = false;
    zolt::writePreviewJson({styled, preview.entries},
                           [&hasJson](std::string_view piece) { hasJson |= !piece.empty(); });
    require(hasJson, "no JSON");
}

void checkAgainstTheSlowWay(const std::string &document, PreviewFlavour flavour,
                            const zolt::Preview &preview) {
    const zolt::literal::Compiled expected = zolt::literal::compile(document, flavour);
    require(preview.entries == expected.entries, "other entries than the slow way gives");
    require(zolt::literal::positionsOf(preview.styled) == expected.text,
            "another text than the slow way gives");
}

} // namespace

/// Every flavour holds together and agrees with the slow compiler.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string document(reinterpret_cast<const char *>(data), size);
    for (const auto flavour : {PreviewFlavour::Hp48, PreviewFlavour::Normal}) {
        const zolt::Preview preview = compilePreview(document, flavour);
        checkParts(preview);
        if (size <= kLongestForTheSlowWay)
            checkAgainstTheSlowWay(document, flavour, preview);
    }
    return 0;
}
