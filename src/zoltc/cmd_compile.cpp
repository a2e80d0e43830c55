#include "graphic/rtf_reader.h"
#include "hp48/hp_file.h"
#include "hp48/source_compiler.h"
#include "platform/embedded_picture.h"
#include "zoltc/command_table.h"

#include <QLoggingCategory>

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
    // A damaged picture is blank; Qt's own words about it would only confuse.
    QLoggingCategory::setFilterRules(QStringLiteral("qt.gui.imageio*=false"));
    const SourceKind kind = total ? SourceKind::Total : partial ? SourceKind::Partial : SourceKind::Normal;
    const auto source = compileSource(richTextFromRtf(bytes), kind, dotsForSource);
    return writeOutput(arguments.files[1], hpFile(withStyleMarks(*source))) ? Done : Unusable;
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
