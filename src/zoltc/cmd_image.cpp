#include "core/document.h"
#include "core/file.h"
#include "core/path.h"
#include "images/bitmap_file.h"
#include "images/gif_file.h"
#include "images/grob.h"
#include "images/image_text.h"
#include "zoltc/command_table.h"
#include "zoltc/guarded_picture.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <utility>

namespace zolt::cli {

namespace {

/// The forms of a picture, told by a file's extension.
enum class Form { Picture, Bitmap, Gif, Grob, ImageText };

struct Extension {
    std::string_view name;
    Form form;
};

constexpr std::array<Extension, 11> kExtensions{{
    {"zli", Form::ImageText},
    {"gro", Form::Grob},
    {"grb", Form::Grob},
    {"bmp", Form::Bitmap},
    {"gif", Form::Gif},
    {"jpg", Form::Picture},
    {"jpeg", Form::Picture},
    {"jpe", Form::Picture},
    {"jfif", Form::Picture},
    {"ico", Form::Picture},
    {"cur", Form::Picture},
}};

constexpr int kWidestSurface = 132;
constexpr int kHighestSurface = 1090;
constexpr std::array kDepths{1, 4, 8, 24};
/// Texts of pictures are far smaller; what is larger is none.
constexpr std::uint64_t kLargestText = std::uint64_t{64} << 20;

struct Settings {
    int width = 132;
    int height = 65;
    int bits = 1;
};

std::optional<Form> formOf(std::string_view file) {
    const std::string name = extensionOf(file);
    const auto found = std::find_if(kExtensions.begin(), kExtensions.end(),
                                    [&](const Extension &known) { return known.name == name; });
    return found == kExtensions.end() ? std::nullopt : std::optional(found->form);
}

bool isText(Form form) {
    return form == Form::Grob || form == Form::ImageText;
}

/// Whether one of the six kinds of conversion leads from a form to another.
bool convertible(Form from, Form to) {
    if (to == Form::Picture || from == to)
        return false;
    return isText(from) || isText(to);
}

/// Reads the options into `settings`. Gives the option with a bad value, else nothing.
std::optional<std::string_view> readOptions(const Arguments &arguments, Settings &settings) {
    const auto read = [&](std::string_view name, int &value) {
        const auto number = wholeNumber(arguments.value(name, std::to_string(value)));
        value = number.value_or(0);
    };
    read("width", settings.width);
    if (settings.width < 1 || settings.width > kWidestSurface)
        return "--width";
    read("height", settings.height);
    if (settings.height < 1 || settings.height > kHighestSurface)
        return "--height";
    read("bits", settings.bits);
    if (std::find(kDepths.begin(), kDepths.end(), settings.bits) == kDepths.end())
        return "--bits";
    return std::nullopt;
}

PictureOfText readGrob(const std::string &file, std::string_view text) {
    PictureOfText picture = VerGrob(text);
    if (picture.reason.empty() && readGrobHeader(text)->tooWide())
        unusable(file, kGrobTooWide);
    return picture;
}

/// The bytes of the target. A GROB made of an image text takes its size from that.
std::string targetBytes(Form to, const DotSurface &surface, GrobSize grobSize, int bits) {
    switch (to) {
    case Form::ImageText:
        return fileFromDocument(LerFigura(surface));
    case Form::Grob:
        return fileFromDocument(FiguraParaGrob(surface, grobSize));
    case Form::Gif:
        return gifFile(surface);
    default:
        return bitmapFile(surface, bits);
    }
}

int convert(const std::string &input, Form from, const std::string &output, Form to,
            const Settings &settings) {
    PictureOfText picture;
    GrobSize grobSize;
    if (isText(from)) {
        const FileContents file = readFile(input, kLargestText);
        if (!file.ok())
            return unusable(input, file.reason);
        const std::string text = pictureTextFromFile(file.bytes);
        picture = from == Form::Grob ? readGrob(input, text) : VerVelda(text);
        grobSize = grobSizeOfImageText(measureImageText(text));
    } else {
        GuardedPicture read = readGuardedPicture(input, settings.width, settings.height);
        if (read.exit != Done) {
            unusable(input, read.picture.reason);
            return read.exit;
        }
        picture = std::move(read.picture);
        grobSize = grobSizeOfSurface(picture.surface);
    }
    if (picture.surface.isEmpty())
        return unusable(input, picture.reason);
    return writeOutput(output, targetBytes(to, picture.surface, grobSize, settings.bits)) ? Done : Unusable;
}

int runImage(const Arguments &arguments) {
    Settings settings;
    if (const auto bad = readOptions(arguments, settings))
        return unusable(*bad, "not a value that this option takes");
    const std::string &input = arguments.files[0];
    const std::string &output = arguments.files[1];
    const auto from = formOf(input);
    if (!from)
        return unusable(input, "no extension of a picture");
    const auto to = formOf(output);
    if (!to || !convertible(*from, *to))
        return unusable(output, "no form that this picture is converted to");
    return convert(input, *from, output, *to, settings);
}

} // namespace

Command imageCommand() {
    return {"image",
            "INPUT OUTPUT",
            "Converts a picture: PC pictures, ASCII GROB (.gro, .grb) and image files (.zli).\n"
            "The extensions decide: PC picture to .zli or GROB; .zli to GROB, .bmp or .gif; GROB to .zli,\n"
            ".bmp or .gif. PC pictures read: .bmp .gif .jpg .jpeg .jpe .jfif .ico .cur. Only pixels that\n"
            "are exactly black become dots. A PC picture that takes too much time or memory ends with 1.",
            {{"width", "W", "dots that a PC picture is stretched to, 1 to 132 (132)"},
             {"height", "H", "the same for its height, 1 to 1090 (65)"},
             {"bits", "N", "bits to the pixel of a .bmp: 1, 4, 8 or 24 (1)"}},
            2,
            2,
            runImage};
}

} // namespace zolt::cli
