#include "hp48/preview_compiler.h"

#include "hp48/fold.h"
#include "hp48/styles_and_pictures.h"

#include <algorithm>

namespace zolt {

namespace {

constexpr std::size_t kLongestUncompiled = 2;

/// The document as the calculator shows it: without the quotes around it, those
/// inside as apostrophes, and with a line end.
std::string openedText(std::string_view text) {
    if (text.starts_with('"'))
        text.remove_prefix(1);
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
    std::optional<std::string> lines = openedText(text);
    if (flavour != PreviewFlavour::Normal)
        lines = foldLines(*lines, progressOfPhase(progress, 1));
    if (!lines)
        return cancelled();
    auto compiled = compileStylesAndPictures(*lines, progressOfPhase(progress, 2), progress.picture);
    if (!compiled)
        return cancelled();
    // As long as the document; its memory serves the rich text.
    lines.reset();
    auto rich = richTextOf(compiled->text, std::move(compiled->drawn), progressOfPhase(progress, 3));
    if (!rich)
        return cancelled();
    auto entries = menuEntries(compiled->text.characters, progressOfPhase(progress, 4));
    if (!entries)
        return cancelled();
    return {std::move(*rich), std::move(compiled->text), std::move(*entries), false};
}

} // namespace zolt
