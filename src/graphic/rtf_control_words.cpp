// What the control words of RTF do: one line a word.

#include "graphic/rtf_reading.h"

namespace zolt {

const std::unordered_map<std::string_view, RtfReader::Handler> &RtfReader::words() {
    using R = RtfReader &;
    using T = const RtfToken &;
    using Kind = RtfPicture::Kind;
    static const std::unordered_map<std::string_view, Handler> table{
        {"ansi", [](R r, T) { r.setDocumentCodePage(kWindowsCodePage); }},
        {"pc", [](R r, T) { r.setDocumentCodePage(437); }},
        {"pca", [](R r, T) { r.setDocumentCodePage(850); }},
        {"mac", [](R r, T) { r.setDocumentCodePage(kMacRomanCodePage); }},
        {"ansicpg", [](R r, T t) { r.setDocumentCodePage(t.parameterOr(kWindowsCodePage)); }},
        {"deff", [](R r, T t) { r.setFont(r.m_defaultFont = t.parameterOr(0)); }},
        {"uc", [](R r, T t) { r.state().fallbackLength = std::clamp(t.parameterOr(1), 0, 255); }},
        {"u", [](R r, T t) { r.unicode(t.parameterOr(0)); }},

        {"f", [](R r, T t) { r.setFont(t.parameterOr(0)); }},
        {"fcharset", [](R r, T t) { r.m_fonts.setCharset(t.parameterOr(1)); }},
        {"cpg", [](R r, T t) { r.m_fonts.setCodePage(t.parameterOr(0)); }},
        {"red", [](R r, T t) { r.m_colours.setRed(t.parameterOr(0)); }},
        {"green", [](R r, T t) { r.m_colours.setGreen(t.parameterOr(0)); }},
        {"blue", [](R r, T t) { r.m_colours.setBlue(t.parameterOr(0)); }},

        {"plain", [](R r, T) { r.setPlain(); }},
        {"fs", [](R r, T t) { r.setHalfPoints(t.parameterOr(24)); }},
        {"cf", [](R r, T t) { r.format().colour = r.m_colours.colour(t.parameterOr(0)); }},
        {"b", [](R r, T t) { r.format().bold = isOn(t); }},
        {"i", [](R r, T t) { r.format().italic = isOn(t); }},
        {"ul", [](R r, T t) { r.format().underline = isOn(t); }},
        {"uld", [](R r, T t) { r.format().underline = isOn(t); }},
        {"uldb", [](R r, T t) { r.format().underline = isOn(t); }},
        {"uldash", [](R r, T t) { r.format().underline = isOn(t); }},
        {"ulth", [](R r, T t) { r.format().underline = isOn(t); }},
        {"ulw", [](R r, T t) { r.format().underline = isOn(t); }},
        {"ulwave", [](R r, T t) { r.format().underline = isOn(t); }},
        {"ulnone", [](R r, T) { r.format().underline = false; }},
        {"strike", [](R r, T t) { r.format().strikeThru = isOn(t); }},
        {"striked", [](R r, T t) { r.format().strikeThru = isOn(t); }},
        {"v", [](R r, T t) { r.state().hidden = isOn(t); }},
        {"deleted", [](R r, T t) { r.state().deleted = isOn(t); }},
        {"field", [](R r, T) { r.state().symbolGiven = false; }},

        {"par", [](R r, T) { r.endParagraph(); }},
        {"line", [](R r, T) { r.endParagraph(); }},
        {"lbr", [](R r, T) { r.endParagraph(); }},
        {"sect", [](R r, T) { r.endLineIfBegun(); }},
        {"page", [](R r, T) { r.endLineIfBegun(); }},
        {"column", [](R r, T) { r.endLineIfBegun(); }},
        {"cell", [](R r, T) { r.endCell(); }},
        {"nestcell", [](R r, T) { r.endCell(); }},
        {"row", [](R r, T) { r.endRow(); }},
        {"nestrow", [](R r, T) { r.endRow(); }},

        {"pngblip", [](R r, T) { r.m_picture.kind = Kind::Png; }},
        {"jpegblip", [](R r, T) { r.m_picture.kind = Kind::Jpeg; }},
        {"dibitmap", [](R r, T) { r.m_picture.kind = Kind::Dib; }},
        {"wmetafile", [](R r, T) { r.m_picture.kind = Kind::Wmf; }},
        {"emfblip", [](R r, T) { r.m_picture.kind = Kind::Emf; }},
        {"macpict", [](R r, T) { r.m_picture.kind = Kind::MacPict; }},
        {"picw", [](R r, T t) { r.m_picture.width = t.parameter; }},
        {"pich", [](R r, T t) { r.m_picture.height = t.parameter; }},
        {"picwgoal", [](R r, T t) { r.m_picture.goalWidth = t.parameter; }},
        {"pichgoal", [](R r, T t) { r.m_picture.goalHeight = t.parameter; }},
        {"picscalex", [](R r, T t) { r.m_picture.scaleX = t.parameterOr(100); }},
        {"picscaley", [](R r, T t) { r.m_picture.scaleY = t.parameterOr(100); }},
        {"shpleft", [](R r, T t) { r.m_shape.left = t.parameter; }},
        {"shptop", [](R r, T t) { r.m_shape.top = t.parameter; }},
        {"shpright", [](R r, T t) { r.m_shape.right = t.parameter; }},
        {"shpbottom", [](R r, T t) { r.m_shape.bottom = t.parameter; }},
    };
    return table;
}

const std::unordered_map<std::string_view, char32_t> &RtfReader::specialCharacters() {
    static const std::unordered_map<std::string_view, char32_t> table{
        {"tab", U'\t'},        {"emdash", U'\u2014'}, {"endash", U'\u2013'},    {"bullet", U'\u2022'},
        {"lquote", U'\u2018'}, {"rquote", U'\u2019'}, {"ldblquote", U'\u201C'}, {"rdblquote", U'\u201D'},
        {"emspace", U' '},     {"enspace", U' '},     {"qmspace", U' '},
    };
    return table;
}

const std::unordered_map<std::string_view, RtfDestination> &RtfReader::destinations() {
    static const std::unordered_map<std::string_view, RtfDestination> table{
        {"fonttbl", RtfDestination::FontTable},
        {"colortbl", RtfDestination::ColourTable},
        {"pict", RtfDestination::Picture},
        {"shppict", RtfDestination::PreferredPicture},
        {"nonshppict", RtfDestination::OtherPicture},
        {"shpinst", RtfDestination::Shape},
        {"shptxt", RtfDestination::Text},
        // The shapes of older programs.
        {"do", RtfDestination::Shape},
        {"dptxbxtext", RtfDestination::Text},
        {"sn", RtfDestination::ShapePropertyName},
        {"sv", RtfDestination::ShapePropertyValue},
        // The shape again, for programs that draw no shapes.
        {"shprslt", RtfDestination::Skip},
        {"stylesheet", RtfDestination::Skip},
        {"info", RtfDestination::Skip},
        {"header", RtfDestination::Skip},
        {"headerl", RtfDestination::Skip},
        {"headerr", RtfDestination::Skip},
        {"headerf", RtfDestination::Skip},
        {"footer", RtfDestination::Skip},
        {"footerl", RtfDestination::Skip},
        {"footerr", RtfDestination::Skip},
        {"footerf", RtfDestination::Skip},
        {"footnote", RtfDestination::Skip},
        {"annotation", RtfDestination::Skip},
        {"fldinst", RtfDestination::FieldInstruction},
        {"fldrslt", RtfDestination::FieldResult},
        {"upr", RtfDestination::Alternatives},
        {"ud", RtfDestination::UnicodeAlternative},
        // A row's end in a table within a table, and a line end for programs without those.
        {"nesttableprops", RtfDestination::Text},
        {"nonesttables", RtfDestination::Skip},
        // What stands around the numbers of a list, which are written as text too.
        {"pntxta", RtfDestination::Skip},
        {"pntxtb", RtfDestination::Skip},
        {"generator", RtfDestination::Skip},
        {"filetbl", RtfDestination::Skip},
        {"revtbl", RtfDestination::Skip},
        {"listtable", RtfDestination::Skip},
        {"listoverridetable", RtfDestination::Skip},
        {"objclass", RtfDestination::Skip},
        {"objname", RtfDestination::Skip},
        {"objdata", RtfDestination::Skip},
        {"tc", RtfDestination::Skip},
        {"tcn", RtfDestination::Skip},
        {"xe", RtfDestination::Skip},
        {"rxe", RtfDestination::Skip},
        {"txe", RtfDestination::Skip},
        {"bkmkstart", RtfDestination::Skip},
        {"bkmkend", RtfDestination::Skip},
        {"ftnsep", RtfDestination::Skip},
        {"ftnsepc", RtfDestination::Skip},
        {"ftncn", RtfDestination::Skip},
        {"aftnsep", RtfDestination::Skip},
        {"aftnsepc", RtfDestination::Skip},
        {"aftncn", RtfDestination::Skip},
        {"template", RtfDestination::Skip},
        {"private", RtfDestination::Skip},
    };
    return table;
}

} // namespace zolt
