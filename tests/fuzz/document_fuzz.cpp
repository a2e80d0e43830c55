#include "hp48/fold.h"
#include "hp48/literal_compiler.h"
#include "hp48/preview_compiler.h"
#include "hp48/preview_json.h"
#include "hp48/screen.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

using zolt::PreviewFlavour;

/// The slow compiler takes the square of the length.
constexpr std::size_t kLongestForTheSlowWay = 400;

void require(bool holds, const char *what) {
    if (!holds) {
        std::fprintf(stderr, "%s\n", what);
        std::abort();
    }
}

/// Only line ends come in, and nothing goes.
void checkFold(const std::string &text) {
    const std::string folded = *zolt::foldLines(text);
    const auto count = [](const std::string &in, char what) {
        return std::count(in.begin(), in.end(), what);
    };
    const auto added = count(folded, '\r') - count(text, '\r');
    require(added >= 0 && added == count(folded, '\n') - count(text, '\n'),
            "a fold that adds half a line end");
    const auto withoutLines = [](std::string in) {
        std::erase_if(in, [](char c) { return c == '\r' || c == '\n'; });
        return in;
    };
    require(withoutLines(folded) == withoutLines(text), "a fold that changes characters");
    require(folded.ends_with("\r\n"), "a fold without a line end");
}

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
    require(!previewJson(preview).empty(), "no JSON");
}

void checkAgainstTheSlowWay(const std::string &document, PreviewFlavour flavour,
                            const zolt::Preview &preview) {
    const zolt::literal::Compiled expected = zolt::literal::compile(document, flavour);
    require(preview.entries == expected.entries, "other entries than the slow way gives");
    require(preview.styled.characters.size() == expected.text.size(),
            "another length than the slow way gives");
    zolt::PieceReader reader(preview.styled);
    while (reader.position() < expected.text.size()) {
        const auto piece = reader.next(expected.text.size());
        for (std::size_t i = piece.begin; i < piece.end; ++i) {
            const zolt::literal::Position &position = expected.text[i];
            require(position.character == preview.styled.characters[i], "another character");
            require(position.font == fontOfStyle(piece.style), "another font");
            require(position.isPicture == (piece.picture != nullptr), "another picture");
            require(!piece.picture || position.cells == piece.picture->cells, "other cells");
        }
    }
}

} // namespace

/// Every flavour holds together and agrees with the slow compiler.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string document(reinterpret_cast<const char *>(data), size);
    checkFold(document + "\r\n");
    for (const auto flavour : {PreviewFlavour::Hp48, PreviewFlavour::Normal}) {
        const zolt::Preview preview = compilePreview(document, flavour);
        checkParts(preview);
        if (size <= kLongestForTheSlowWay)
            checkAgainstTheSlowWay(document, flavour, preview);
    }
    return 0;
}
