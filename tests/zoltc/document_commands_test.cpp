#include "support/texts.h"
#include "zoltc/command_line.h"

#include <algorithm>
#include <cstdlib>

namespace zolt::cli {
namespace {

class DocumentCommands : public CommandLine {
protected:
    std::string document(std::string_view bytes) const {
        put("in.zlt", bytes);
        return path("in.zlt");
    }
};

TEST_F(DocumentCommands, CheckPrintsTheReportAndWritesTheCorrection) {
    const std::string input = document("a\"b\r\n");
    EXPECT_EQ(zoltc({"check", input, "--corrected", path("out.zlt")}), 1);
    EXPECT_EQ(m_output, "\r\n** Beginning verification **\r\n\r\n"
                        "-Superior ('') character inserted \r\n-Inferior ('') character inserted \r\n"
                        "-Ilegal character found (\") in position (3). Substituted by (')\r\n"
                        "\r\n** Verification ended **\r\n\r\nNumber of errors found: 1\r\n");
    EXPECT_EQ(m_errors, "");
    EXPECT_EQ(get("out.zlt"), "\"a'b\"\r\n");
    // A file that can't be written weighs more than the errors counted.
    EXPECT_EQ(zoltc({"check", input, "--corrected", path("none/out.zlt")}), 2);
    EXPECT_EQ(zoltc({"check", document("a\r\n")}), 0);
}

TEST_F(DocumentCommands, HpWritesTheCalculatorsFile) {
    const std::string bold = test::withMarks("@BHi@B");
    EXPECT_EQ(zoltc({"hp", document(bold + "\r\n"), path("Hi")}), 0);
    EXPECT_EQ(get("Hi"), '"' + bold + "\"\r\n");
    EXPECT_EQ(zoltc({"hp", document(""), "-"}), 0);
    EXPECT_EQ(m_output, "\"\"\r\n");
}

TEST_F(DocumentCommands, HpRefusesNamesWithTheWindowsMessage) {
    const std::string input = document("a\r\n");
    EXPECT_EQ(zoltc({"hp", input, path("a.hp")}), 1);
    EXPECT_EQ(m_output, "");
    EXPECT_EQ(m_errors, "The filename contains the invalid character (.) \r\nPlease re-enter the filename\n");
    EXPECT_FALSE(exists("a.hp"));
    EXPECT_EQ(zoltc({"hp", input, path("\u4E2D")}), 1);
    EXPECT_EQ(zoltc({"hp", input, path("\u03B1\u03B2")}), 0);
    EXPECT_EQ(get("\u03B1\u03B2"), "\"a\"\r\n");

    EXPECT_EQ(zoltc({"hp", input, path("Cst")}), 1);
    EXPECT_EQ(m_errors, "The filename (Cst) is a reserved variable\r\nContinue ?\n");
    EXPECT_EQ(zoltc({"hp", input, path("Cst"), "--reserved"}), 0);
    EXPECT_EQ(get("Cst"), "\"a\"\r\n");
    // The answer Yes is to that question alone.
    EXPECT_EQ(zoltc({"hp", input, path("Drop"), "--reserved"}), 1);
}

TEST_F(DocumentCommands, OptimiseWritesADocumentAndCountPrintsFourLines) {
    const std::string cell = test::withMarks("#000000");
    const std::string input = document(cell + "a b" + cell + "\r\n");
    EXPECT_EQ(zoltc({"optimise", input, path("out"), "--partial"}), 0);
    EXPECT_EQ(get("out"), cell + "a b\r\n");
    EXPECT_EQ(zoltc({"optimise", "--total", input, input}), 0);
    EXPECT_EQ(get("in.zlt"), " a b\r\n");
    EXPECT_EQ(zoltc({"optimise", input, path("out")}), 2);
    EXPECT_EQ(zoltc({"optimise", input, path("out"), "--partial", "--total"}), 2);

    EXPECT_EQ(zoltc({"count", input}), 0);
    EXPECT_EQ(m_output,
              "Words: 2\nCharacters (excl. spaces): 2\nCharacters (incl. spaces): 4\nParagraphs: 0\n");
}

TEST_F(DocumentCommands, WrapBreaksLinesAtWordsForAnyWidth) {
    const std::string input = document("one two three\r\nfour\r\n");
    EXPECT_EQ(zoltc({"wrap", input, "@out", "--columns", "8"}), 0);
    EXPECT_EQ(get("out"), "one two \r\nthree\r\nfour\r\n");
    EXPECT_EQ(zoltc({"wrap", "--columns=5", "@out", "@out"}), 0);
    EXPECT_EQ(get("out"), "one \r\ntwo \r\nthree\r\nfour\r\n");
    EXPECT_EQ(zoltc({"wrap", "--reflow", "@out", "-"}), 0);
    EXPECT_EQ(m_output, "one two three\r\nfour\r\n");
    for (const std::string columns : {"0", "34", "x", ""}) {
        EXPECT_EQ(zoltc({"wrap", input, "@none", "--columns", columns}), 2);
        EXPECT_EQ(m_errors, "zoltc: --columns: not a number from 1 to 33\n");
    }
    EXPECT_FALSE(exists("none"));
}

TEST_F(DocumentCommands, SayWhichFileCannotBeUsed) {
    EXPECT_EQ(zoltc({"hp", path("none"), path("Out")}), 2);
    EXPECT_EQ(m_errors, "zoltc: " + path("none") + ": No such file or directory\n");
    EXPECT_EQ(zoltc({"hp", document("a"), path("none/Out")}), 2);
    EXPECT_EQ(zoltc({"hp", document("a"), path("")}), 2);
    EXPECT_EQ(zoltc({"check"}), 2);
}

TEST_F(DocumentCommands, WorkInAPipe) {
    const std::string input = document("a\"b\r\n");
    const std::string pipe = std::string("'" ZOLTC "' hp - - <'") + input + "' >'" + path("out") + "'";
    EXPECT_EQ(std::system(pipe.c_str()), 0);
    EXPECT_EQ(get("out"), "\"a'b\"\r\n");
    // A named pipe serves as well as "-".
    const std::string named = "mkfifo '" + path("fifo") + "' && (cat '" + input + "' >'" + path("fifo") +
                              "' & '" ZOLTC "' hp '" + path("fifo") + "' '" + path("out2") + "')";
    EXPECT_EQ(std::system(named.c_str()), 0);
    EXPECT_EQ(get("out2"), "\"a'b\"\r\n");
    // A full disk behind standard output is a failure that is told.
    const std::string full =
        std::string("'" ZOLTC "' hp '") + input + "' - >/dev/full 2>'" + path("err") + "'";
    EXPECT_EQ(WEXITSTATUS(std::system(full.c_str())), 2);
    EXPECT_EQ(get("err"), "zoltc: standard output: can't be written\n");
}

TEST_F(DocumentCommands, BothProgramsAnswerWithoutADisplay) {
    for (const std::string program : {"zolt", "zoltc"}) {
        const std::string start = "env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM '" +
                                  std::string(program == "zolt" ? ZOLT : ZOLTC) + "' ";
        const std::string end = " >'" + path("out") + "' 2>'" + path("err") + "'";
        EXPECT_EQ(std::system((start + "--version" + end).c_str()), 0);
        EXPECT_EQ(get("out"), program + " " ZOLT_VERSION "\n");
        EXPECT_EQ(std::system((start + "--help" + end).c_str()), 0);
        const std::string help = get("out");
        EXPECT_TRUE(help.starts_with("usage: " + program + " ")) << help;
        EXPECT_LE(std::count(help.begin(), help.end(), '\n'), 24);
        EXPECT_EQ(get("err"), "");
    }
}

} // namespace
} // namespace zolt::cli
