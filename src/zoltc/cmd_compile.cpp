#include "graphic/rtf_reader.h"
#include "hp48/hp_file.h"
#include "hp48/source_compiler.h"
#include "zoltc/command_table.h"
#include "zoltc/picture_decoders.h"

#include <utility>

namespace zolt::cli {

namespace {

int runCompile(const Arguments &arguments) {
    const bool total = arguments.has("total");
    const bool partial = arguments.has("partial");
    if (total && partial)
        return unusable("compile", "takes only one of --partial and --total");
    std::string bytes;
    if (!readInput(arguments.files[0], bytes))
        return Unusable;
    const SourceKind kind = total ? SourceKind::Total : partial ? SourceKind::Partial : SourceKind::Normal;
    std::string reason;
    const PictureDecoders *decoders = nullptr;
    // A damaged picture is blank.
    const auto dotsOf = [&](const RichPicture &picture) {
        if (!decoders && reason.empty())
            decoders = pictureDecoders(reason);
        return decoders ? decoders->forSource(picture) : DotSurface();
    };
    auto source = compileSource(richTextFromRtf(bytes), kind, dotsOf);
    if (!reason.empty())
        return unusable(arguments.files[0], reason);
    return writeOutput(arguments.files[1], hpFile(withStyleMarks(std::move(*source)))) ? Done : Unusable;
}

} // namespace

Command compileCommand() {
    return {"compile",
            "INPUT OUTPUT",
            "Compiles a document of the graphical edition to the calculator's file: style fonts\n"
            "become codes, each picture 33 by 11 cells. A file that is no RTF counts as plain text.\n"
            "OUTPUT may bear any name.",
            {{"partial", "", "drop blank cells at line ends"},
             {"total", "", "put blanks in place of the other blank cells too"}},
            2,
            2,
            runCompile};
}

} // namespace zolt::cli
