#include "hp48/preview_compiler.h"

#include "core/codes.h"
#include "core/document.h"
#include "hp48/fold.h"
#include "hp48/picture_block.h"
#include "hp48/styled_rich_text.h"
#include "hp48/styles_and_pictures.h"

#include <utility>

namespace zolt {

namespace {

constexpr std::size_t kLongestUncompiled = 2;

/// Where each step put a document's characters; null where nobody asks.
using Steps = std::vector<PlaceMap>;

PlaceMap *newStep(Steps *steps) {
    return steps ? &steps->emplace_back() : nullptr;
}

/// Makes of a document what the calculator shows: without the quotes around it, those
/// inside as apostrophes, and with a line end.
void openText(std::string &text, PlaceMap *places) {
    if (text.starts_with('"')) {
        text.erase(0, 1);
        if (places)
            places->add(1, 0);
    }
    if (text.ends_with('"'))
        text.pop_back();
    for (std::size_t i = text.find('"'); i != std::string::npos; i = text.find('"', i + 1))
        text[i] = '\'';
    text += kLineEnd;
}

Progress progressOfPhase(const PreviewProgress &progress, int phase) {
    if (!progress.phase)
        return {};
    return [&progress, phase](std::size_t position, std::size_t length) {
        return progress.phase(phase, position, length);
    };
}

Preview uncompiled(std::string_view text) {
    Preview preview;
    preview.styled.append(text, Style::Plain);
    preview.text = *richTextOf(preview.styled, {});
    return preview;
}

Preview cancelled() {
    Preview preview;
    preview.cancelled = true;
    return preview;
}

/// The first phase.
std::optional<std::string> openedAndFolded(std::string text, PreviewFlavour flavour,
                                           const PreviewProgress &progress, Steps *steps) {
    openText(text, newStep(steps));
    if (flavour == PreviewFlavour::Normal)
        return text;
    return foldLines(text, progressOfPhase(progress, 1), newStep(steps));
}

/// The first two phases. No more than two copies of the text stand in memory at once.
std::optional<StyledText> foldedAndStyled(std::string text, PreviewFlavour flavour,
                                          const PreviewProgress &progress, const PictureTaker &onPicture,
                                          Steps *steps = nullptr) {
    const auto lines = openedAndFolded(std::move(text), flavour, progress, steps);
    if (!lines)
        return std::nullopt;
    return compileStylesAndPictures(*lines, progressOfPhase(progress, 2), onPicture, newStep(steps));
}

/// All but the pictures' drawings and the rich text.
std::optional<CompiledText> compiled(std::string document, PreviewFlavour flavour, const Progress &progress,
                                     Steps *steps = nullptr) {
    CompiledText result;
    if (document.size() <= kLongestUncompiled) {
        result.text.append(document, Style::Plain);
        return result;
    }
    const auto inPhase = [&progress](int, std::size_t position, std::size_t length) {
        return goOn(progress, position, length);
    };
    auto styled = foldedAndStyled(std::move(document), flavour, {inPhase, {}}, {}, steps);
    auto entries = styled ? menuEntries(styled->characters, progress) : std::nullopt;
    if (!entries)
        return std::nullopt;
    return CompiledText{std::move(*styled), std::move(*entries)};
}

} // namespace

std::string phaseLabel(int phase) {
    return "Fase " + std::to_string(phase) + "/" + std::to_string(kPreviewPhases);
}

std::string phaseLabel(int phase, std::size_t position, std::size_t length) {
    const std::size_t percent = length == 0 ? 100 : position * 100 / length;
    return phaseLabel(phase) + " - [" + std::to_string(percent) + "%]";
}

Preview compilePreview(std::string_view text, PreviewFlavour flavour, const PreviewProgress &progress) {
    if (text.size() <= kLongestUncompiled)
        return uncompiled(text);
    std::vector<RichPicture> drawn;
    const auto draw = [&](const PictureBlock &block) {
        auto picture = DesenhoDaFigura(block.cells, {block.columns, block.lines}, progress.picture);
        if (picture)
            drawn.push_back(std::move(*picture));
        return picture.has_value();
    };
    auto styled = foldedAndStyled(copyWithRoom(text), flavour, progress, draw);
    if (!styled)
        return cancelled();
    auto rich = richTextOf(*styled, std::move(drawn), progressOfPhase(progress, 3));
    if (!rich)
        return cancelled();
    auto entries = menuEntries(styled->characters, progressOfPhase(progress, 4));
    if (!entries)
        return cancelled();
    return {std::move(*rich), std::move(*styled), std::move(*entries), false};
}

CompiledText compileText(std::string document, PreviewFlavour flavour) {
    return *compiled(std::move(document), flavour, {});
}

std::optional<CompiledScreen> compileScreen(std::string_view text, const Progress &progress) {
    CompiledScreen screen;
    auto result = compiled(copyWithRoom(text), PreviewFlavour::Hp48, progress, &screen.places);
    if (!result)
        return std::nullopt;
    screen.text = std::move(result->text);
    screen.entries = std::move(result->entries);
    screen.lines = screenLines(screen.text);
    return screen;
}

} // namespace zolt
