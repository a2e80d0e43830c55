#pragma once

#include "core/colour.h"
#include "core/progress.h"

#include <string>
#include <string_view>

namespace zolt {

/// How the text pane that is exported looks. The colours are plain red, green and
/// blue: system colours are resolved before.
struct WebPageLook {
    Colour ForeColor = 0x000000;
    Colour BackColor = 0xFFFFFF;
    std::string FontName = "ZOLT";
    /// In points.
    double FontSize = 10;
    bool FontBold = false;
    bool FontItalic = false;
    bool FontUnderline = false;
    bool FontStrikethru = false;
};

/// A document as a Web page.
struct WebPage {
    /// The bytes of the file, its last CR LF included; empty if there is no page.
    std::string file;
    /// What the user has to be told if there is no page. Empty too if the progress
    /// asked to stop.
    std::string message;

    bool ok() const { return !file.empty(); }
};

/// Makes the Web page of a document: its text in one font, with its line ends marked
/// for a browser. No character of the text is escaped, and neither are style codes
/// or picture cells told apart from it. Reports the bytes of the document.
WebPage webPage(std::string_view document, const WebPageLook &look, const Progress &progress = {});

/// The size from 1 to 7 that stands for a font size in points.
int htmlFontSize(double points);

/// A colour as "#" and six digits, red first. Only the low 24 bits count.
std::string htmlColour(Colour colour);

} // namespace zolt
