#include "hp48/preview_compiler.h"

#include "hp48/fold.h"
#include "hp48/styles_and_pictures.h"

#include <algorithm>

namespace zolt {

namespace {

constexpr std::size_t kLongestUncompiled = 2;

/// Where each step put a document's characters; null where nobody asks.
using Steps = std::vector<PlaceMap>;

PlaceMap *newStep(Steps *steps) {
    return steps ? &steps->emplace_back() : nullptr;
}

/// The document as the calculator shows it: without the quotes around it, those
/// inside as apostrophes, and with a line end.
std::string openedText(std::string_view text, PlaceMap *places) {
    if (text.starts_with('"')) {
        text.remove_prefix(1);
        if (places)
            places->add(1, 0);
    }
    if (text.ends_with('"'))
        text.remove_suffix(1);
    std::string opened;
    opened.reserve(text.size() + kLineEnd.size());
    opened.append(text);
    std::replace(opened.begin(), opened.end(), '"', '\'');
    return opened.append(kLineEnd);
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

/// The first two phases.
std::optional<StyledPictures> foldedAndStyled(std::string_view text, PreviewFlavour flavour,
                                              const PreviewProgress &progress, Steps *steps = nullptr) {
    std::optional<std::string> lines = openedText(text, newStep(steps));
    if (flavour != PreviewFlavour::Normal)
        lines = foldLines(*lines, progressOfPhase(progress, 1), newStep(steps));
    if (!lines)
        return std::nullopt;
    return compileStylesAndPictures(*lines, progressOfPhase(progress, 2), progress.picture, newStep(steps));
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
    auto compiled = foldedAndStyled(text, flavour, progress);
    if (!compiled)
        return cancelled();
    auto rich = richTextOf(compiled->text, std::move(compiled->drawn), progressOfPhase(progress, 3));
    if (!rich)
        return cancelled();
    auto entries = menuEntries(compiled->text.characters, progressOfPhase(progress, 4));
    if (!entries)
        return cancelled();
    return {std::move(*rich), std::move(compiled->text), std::move(*entries), false};
}

std::optional<CompiledScreen> compileScreen(std::string_view text, const Progress &progress) {
    CompiledScreen screen;
    if (text.size() <= kLongestUncompiled) {
        screen.text.append(text, Style::Plain);
    } else {
        const auto inPhase = [&progress](int, std::size_t position, std::size_t length) {
            return goOn(progress, position, length);
        };
        auto compiled = foldedAndStyled(text, PreviewFlavour::Hp48, {inPhase, progress}, &screen.places);
        auto entries = compiled ? menuEntries(compiled->text.characters, progress) : std::nullopt;
        if (!entries)
            return std::nullopt;
        screen.text = std::move(compiled->text);
        screen.entries = std::move(*entries);
    }
    screen.lines = screenLines(screen.text);
    return screen;
}

} // namespace zolt
