#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zolt {

inline constexpr std::string_view kTrue = "True";
inline constexpr std::string_view kFalse = "False";

/// What the program remembers from run to run. Each field bears the name of its
/// key in the settings file. The fields without a value here depend on the
/// program folder; `defaultSettings` gives them theirs.
struct Settings {
    /// 1 asks for the association of the file types at this start.
    std::int16_t FrstTime = 0;
    /// "EN" or "PT"; carried from run to run.
    std::string Language = "EN";

    /// Folder of the last document, with its trailing separator once one was used.
    std::string DefltDir;
    /// The symbol file that is loaded by default.
    std::string DefltSmb;
    /// Last folders: image conversion, PDF export, HP file, inserted images of the
    /// calculator's form, GROBs, PC pictures, normal preview.
    std::string DfDirCnv;
    std::string DfDirPdf;
    std::string DfDirFHP;
    std::string DfDirIHa;
    std::string DfDirIGr;
    std::string DfDirIPC;
    std::string DfDirPrN;

    /// Font of the text panes: name, points, colours as the decimal text of a
    /// signed 32-bit value, and four flags (kTrue or kFalse).
    std::string TFntName = "ZOLT";
    std::int16_t TFntSize = 10;
    std::string TFntColr = "-2147483640";
    std::string TFntBold{kFalse};
    std::string TFntItal{kFalse};
    std::string TFntUndl{kFalse};
    std::string TFntStrT{kFalse};
    std::string TFntBckC = "16777215";

    /// Quick bar: 0 hidden, 1 floating tall, 2 floating wide, 3 docked at the top,
    /// 4 docked on the right; its place in twips.
    std::int16_t CharTool = 3;
    std::int16_t ChrToolX = 1000;
    std::int16_t ChrToolY = 1000;
    /// Character table: 1 = open; its place in twips; its font.
    std::int16_t ChrTbExi = 0;
    std::int16_t ChrTbPoX = 1000;
    std::int16_t ChrTbPoY = 1000;
    std::string ChrTbFnt = "ZOLT";

    /// The active pane: 1 = Text1 with word wrap, 2 = Text2 without.
    std::int16_t TxtWWrap = 1;

    /// Margins in twips, and the page's orientation.
    std::int16_t PgStpTop = 1440;
    std::int16_t PgStpBot = 1440;
    std::int16_t PgStpLft = 1728;
    std::int16_t PgStpRgt = 1728;
    std::int16_t PgStpOrn = 1;

    /// The edition that the chooser marks: 1 textual, 2 graphical.
    std::int16_t Question = 1;

    bool operator==(const Settings &) const = default;
};

/// `programFolder` has no trailing separator.
Settings defaultSettings(std::string_view programFolder);

/// The settings in a file's bytes: 33 lines in the order of the fields, each of
/// the key, "=" and the value. Only a field's place counts and not its key. A
/// field ends at the line's end or at the first comma; what follows the comma is
/// the next field. Nothing if a field is missing, or a number is none or doesn't
/// fit its field.
std::optional<Settings> settingsFromFile(std::string_view bytes);

/// The file's bytes. Texts that don't fit would make it unreadable: see `writeSettings`.
std::string fileFromSettings(const Settings &settings);

/// Whether a text can stand in the file as a value: a field would end at a comma or
/// at a line's end. Folders may have such names.
bool fitsSetting(std::string_view value);

/// Writes the file `path`. Where a text doesn't fit, the one in the file stays, or the
/// value is left empty if there is none. Returns the reason of a failure, else an empty
/// text.
std::string writeSettings(const std::string &path, const Settings &settings);

/// Reads the file `path`. If that fails, writes the defaults there and reads them;
/// if they can't be read either, the defaults stand. An empty text gets its default if
/// that is one that doesn't fit. Doesn't look at what the values mean: see `areSound`.
Settings readSettings(const std::string &path, std::string_view programFolder);

/// The file's one validity mark: TxtWWrap names a pane. Settings that aren't sound
/// are replaced in memory, by the defaults as a whole.
inline bool areSound(const Settings &settings) {
    return settings.TxtWWrap == 1 || settings.TxtWWrap == 2;
}

inline bool isTrue(std::string_view flag) {
    return flag == kTrue;
}
inline std::string flagText(bool on) {
    return std::string(on ? kTrue : kFalse);
}

} // namespace zolt
