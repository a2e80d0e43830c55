#include "shell/start/roads.h"

#include "graphic/style_fonts.h"
#include "hp48/source_compiler.h"
#include "platform/rich_text_box.h"
#include "platform/text_pane.h"
#include "shell/base/shared_values.h"
#include "shell/base/windows.h"
#include "shell/document/graphic/edit_graph_frm.h"
#include "shell/document/text/edit_text_frm.h"
#include "shell/preview/edit_text_preview_normal_frm.h"
#include "shell/start/document_windows.h"

namespace zolt {

namespace {

void openGraphical(const RichText &text, const QString &caption) {
    static_cast<EditGraphFrm &>(openEdition(kGraphical)).begin(text, caption);
}

void openTextual(const std::string &text, const QString &caption) {
    static_cast<EditTextFrm &>(openEdition(kTextual)).begin(text, caption);
}

void takeTextToGraphical(EditTextFrm &window) {
    // The text as it stands, codes and cells included.
    const RichText text = window.inPaneLook(withRichTextStyleMarks(window.activePane().Text()));
    const QString caption = window.caption();
    if (closeUnasked(window))
        openGraphical(text, caption);
}

void takePreviewToGraphical(EditTextFrm &window, EditTextPreviewNormalFrm &preview) {
    const RichText text = inPlainFont(preview.text().richText());
    const QString caption = window.caption();
    preview.close();
    if (closeUnasked(window))
        openGraphical(text, caption);
}

void takeGraphicalToTextual(EditGraphFrm &window) {
    const std::string text = textWithoutPictures(window.activeRichPane().richText());
    const QString caption = window.caption();
    if (closeUnasked(window))
        openTextual(text, caption);
}

void takeSourceToTextual(EditGraphFrm &window) {
    if (closeUnasked(window))
        openTextual(shared::TextoEnviado, QStringLiteral("Document1"));
}

} // namespace

void takeRoad(Road road) {
    auto *textual = loaded<EditTextFrm>();
    auto *graphical = loaded<EditGraphFrm>();
    auto *preview = loaded<EditTextPreviewNormalFrm>();
    if (road == Road::TextToGraphical && textual)
        takeTextToGraphical(*textual);
    else if (road == Road::PreviewToGraphical && textual && preview)
        takePreviewToGraphical(*textual, *preview);
    else if (road == Road::GraphicalToTextual && graphical)
        takeGraphicalToTextual(*graphical);
    else if (road == Road::SourceToTextual && graphical)
        takeSourceToTextual(*graphical);
}

} // namespace zolt
