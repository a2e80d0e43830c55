#include "core/settings.h"

#include "core/codes.h"
#include "core/file.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <variant>
#include <vector>

namespace zolt {

namespace {

using namespace std::string_view_literals;

using IntegerField = std::int16_t Settings::*;
using TextField = std::string Settings::*;

enum class Form {
    /// A whole field of text.
    Text,
    /// The field's text must be a number.
    Integer,
    /// The number at the field's start; 0 without one.
    LeadingInteger,
    /// The same, of 32 bits, kept as its decimal text.
    Colour
};

struct Field {
    std::string_view key;
    Form form;
    std::variant<IntegerField, TextField> member;
};

constexpr Field text(std::string_view key, TextField member) {
    return {key, Form::Text, member};
}
constexpr Field integer(std::string_view key, IntegerField member) {
    return {key, Form::Integer, member};
}

/// All fields in the order of the file.
constexpr std::array<Field, 33> kFields{{
    integer("FrstTime", &Settings::FrstTime),
    text("Language", &Settings::Language),
    text("DefltDir", &Settings::DefltDir),
    text("DefltSmb", &Settings::DefltSmb),
    text("DfDirCnv", &Settings::DfDirCnv),
    text("DfDirPdf", &Settings::DfDirPdf),
    text("DfDirFHP", &Settings::DfDirFHP),
    text("DfDirIHa", &Settings::DfDirIHa),
    text("DfDirIGr", &Settings::DfDirIGr),
    text("DfDirIPC", &Settings::DfDirIPC),
    text("DfDirPrN", &Settings::DfDirPrN),
    text("TFntName", &Settings::TFntName),
    {"TFntSize", Form::LeadingInteger, &Settings::TFntSize},
    {"TFntColr", Form::Colour, &Settings::TFntColr},
    text("TFntBold", &Settings::TFntBold),
    text("TFntItal", &Settings::TFntItal),
    text("TFntUndl", &Settings::TFntUndl),
    text("TFntStrT", &Settings::TFntStrT),
    {"TFntBckC", Form::Colour, &Settings::TFntBckC},
    integer("CharTool", &Settings::CharTool),
    integer("ChrToolX", &Settings::ChrToolX),
    integer("ChrToolY", &Settings::ChrToolY),
    integer("ChrTbExi", &Settings::ChrTbExi),
    integer("ChrTbPoX", &Settings::ChrTbPoX),
    integer("ChrTbPoY", &Settings::ChrTbPoY),
    text("ChrTbFnt", &Settings::ChrTbFnt),
    integer("TxtWWrap", &Settings::TxtWWrap),
    integer("PgStpTop", &Settings::PgStpTop),
    integer("PgStpBot", &Settings::PgStpBot),
    integer("PgStpLft", &Settings::PgStpLft),
    integer("PgStpRgt", &Settings::PgStpRgt),
    integer("PgStpOrn", &Settings::PgStpOrn),
    integer("Question", &Settings::Question),
}};

/// Bytes of a field in front of its value: the key and "=".
constexpr std::size_t kValueStart = 9;
/// A settings file of ordinary folder names has under 2 KB.
constexpr std::uint64_t kLargestSettingsFile = 1 << 20;

std::string_view withoutLeadingBlanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return text;
}

std::string_view withoutQuotes(std::string_view text) {
    if (!text.starts_with('"'))
        return text;
    text.remove_prefix(1);
    if (text.ends_with('"'))
        text.remove_suffix(1);
    return text;
}

/// Takes the next field off the front of `rest`, and the comma or line end behind
/// it. Nothing at the file's end.
std::optional<std::string_view> takeField(std::string_view &rest) {
    if (rest.empty())
        return std::nullopt;
    const std::size_t end = std::min(rest.find_first_of(",\r\n"), rest.size());
    const std::string_view field = rest.substr(0, end);
    rest.remove_prefix(end);
    rest.remove_prefix(std::min<std::size_t>(rest.starts_with(kLineEnd) ? 2 : 1, rest.size()));
    return withoutQuotes(withoutLeadingBlanks(field));
}

/// Takes the decimal number off the front of `text`, blanks before it included.
/// Nothing if there is none.
std::optional<double> takeNumber(std::string_view &text) {
    std::string_view digits = withoutLeadingBlanks(text);
    const std::string_view unsignedPart = digits.substr(digits.starts_with('+') || digits.starts_with('-'));
    // The words for infinity, which from_chars knows, are no numbers here.
    if (unsignedPart.find_first_of("0123456789.") != 0)
        return std::nullopt;
    if (digits.starts_with('+'))
        digits = unsignedPart;
    double number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc())
        return std::nullopt;
    text = digits.substr(static_cast<std::size_t>(end - digits.data()));
    return number;
}

template <typename Whole> std::optional<Whole> rounded(double number) {
    const double nearest = std::nearbyint(number);
    if (nearest < std::numeric_limits<Whole>::min() || nearest > std::numeric_limits<Whole>::max())
        return std::nullopt;
    return static_cast<Whole>(nearest);
}

std::optional<std::int16_t> wholeInteger(std::string_view value) {
    const std::optional<double> number = takeNumber(value);
    if (!number || !withoutLeadingBlanks(value).empty())
        return std::nullopt;
    return rounded<std::int16_t>(*number);
}

template <typename Whole> std::optional<Whole> leadingInteger(std::string_view value) {
    return rounded<Whole>(takeNumber(value).value_or(0));
}

/// Puts a field's text into its member. False if the text doesn't fit.
bool store(const Field &field, std::string_view value, Settings &settings) {
    if (const auto *member = std::get_if<IntegerField>(&field.member)) {
        const auto number =
            field.form == Form::Integer ? wholeInteger(value) : leadingInteger<std::int16_t>(value);
        settings.**member = number.value_or(0);
        return number.has_value();
    }
    std::string &member = settings.*std::get<TextField>(field.member);
    if (field.form == Form::Text) {
        member = value;
        return true;
    }
    const auto colour = leadingInteger<std::int32_t>(value);
    member = std::to_string(colour.value_or(0));
    return colour.has_value();
}

std::string valueText(const Field &field, const Settings &settings) {
    if (const auto *member = std::get_if<IntegerField>(&field.member))
        return std::to_string(settings.**member);
    return settings.*std::get<TextField>(field.member);
}

std::vector<TextField> textFields() {
    std::vector<TextField> members;
    for (const Field &field : kFields)
        if (const auto *member = std::get_if<TextField>(&field.member))
            members.push_back(*member);
    return members;
}

/// The settings of a file that couldn't hold all the defaults.
Settings withMissingDefaults(Settings settings, const Settings &defaults) {
    for (const TextField member : textFields())
        if ((settings.*member).empty() && !fitsSetting(defaults.*member))
            settings.*member = defaults.*member;
    return settings;
}

std::optional<Settings> settingsFromPath(const std::string &path) {
    const FileContents file = readFile(path, kLargestSettingsFile);
    return file.ok() ? settingsFromFile(file.bytes) : std::nullopt;
}

} // namespace

Settings defaultSettings(std::string_view programFolder) {
    Settings settings;
    for (const TextField folder :
         {&Settings::DefltDir, &Settings::DfDirCnv, &Settings::DfDirPdf, &Settings::DfDirFHP,
          &Settings::DfDirIHa, &Settings::DfDirIGr, &Settings::DfDirIPC, &Settings::DfDirPrN})
        settings.*folder = programFolder;
    settings.DefltSmb = std::string(programFolder) + "/Default.zls";
    return settings;
}

std::optional<Settings> settingsFromFile(std::string_view bytes) {
    Settings settings;
    for (const Field &field : kFields) {
        const std::optional<std::string_view> text = takeField(bytes);
        if (!text || !store(field, text->substr(std::min(kValueStart, text->size())), settings))
            return std::nullopt;
    }
    return settings;
}

std::string fileFromSettings(const Settings &settings) {
    std::string bytes;
    for (const Field &field : kFields)
        bytes.append(field.key).append("=").append(valueText(field, settings)).append(kLineEnd);
    return bytes;
}

bool fitsSetting(std::string_view value) {
    return value.find_first_of(",\r\n\0"sv) == std::string_view::npos;
}

std::string writeSettings(const std::string &path, const Settings &settings) {
    const std::optional<Settings> before = settingsFromPath(path);
    Settings fitting = settings;
    for (const TextField member : textFields())
        if (!fitsSetting(fitting.*member))
            fitting.*member = before ? (*before).*member : std::string();
    return writeFile(path, fileFromSettings(fitting));
}

Settings readSettings(const std::string &path, std::string_view programFolder) {
    const Settings defaults = defaultSettings(programFolder);
    std::optional<Settings> settings = settingsFromPath(path);
    if (!settings) {
        // Without a message: a folder that can't be written leaves the defaults in memory.
        writeSettings(path, defaults);
        settings = settingsFromPath(path);
    }
    return settings ? withMissingDefaults(*settings, defaults) : defaults;
}

} // namespace zolt
