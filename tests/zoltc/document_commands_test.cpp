#include "support/temporary_folder.h"
#include "zoltc/command.h"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>

namespace zolt::cli {
namespace {

using test::bytesOf;
using test::putBytes;
using test::TemporaryFolder;

struct Outcome {
    int code;
    std::string output;
    std::string complaint;
};

Outcome runCommand(const std::vector<std::string> &words) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const int code = run(words);
    std::fflush(stdout);
    return {code, testing::internal::GetCapturedStdout(), testing::internal::GetCapturedStderr()};
}

class DocumentCommands : public testing::Test {
protected:
    std::string file(std::string_view name) const { return m_folder.file(name); }
    std::string document(std::string_view bytes) const {
        putBytes(file("in.zlt"), bytes);
        return file("in.zlt");
    }

private:
    TemporaryFolder m_folder;
};

TEST_F(DocumentCommands, CheckPrintsTheReportAndWritesTheCorrection) {
    const std::string input = document("a\"b\r\n");
    const Outcome outcome = runCommand({"check", input, "--corrected", file("out.zlt")});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.output, "\r\n** Beginning verification **\r\n\r\n"
                              "-Superior ('') character inserted \r\n-Inferior ('') character inserted \r\n"
                              "-Ilegal character found (\") in position (3). Substituted by (')\r\n"
                              "\r\n** Verification ended **\r\n\r\nNumber of errors found: 1\r\n");
    EXPECT_EQ(outcome.complaint, "");
    EXPECT_EQ(bytesOf(file("out.zlt")), "\"a'b\"\r\n");
    // A file that can't be written weighs more than the errors counted.
    EXPECT_EQ(runCommand({"check", input, "--corrected", file("none/out.zlt")}).code, 2);
    EXPECT_EQ(runCommand({"check", document("a\r\n")}).code, 0);
}

TEST_F(DocumentCommands, HpWritesTheCalculatorsFile) {
    const std::string input = document("\x0B"
                                       "BHi\x0B"
                                       "B\r\n");
    EXPECT_EQ(runCommand({"hp", input, file("Hi")}).code, 0);
    EXPECT_EQ(bytesOf(file("Hi")), "\"\x0B"
                                   "BHi\x0B"
                                   "B\"\r\n");
    EXPECT_EQ(runCommand({"hp", document(""), "-"}).output, "\"\"\r\n");
}

TEST_F(DocumentCommands, HpRefusesNamesWithTheWindowsMessage) {
    const std::string input = document("a\r\n");
    const Outcome point = runCommand({"hp", input, file("a.hp")});
    EXPECT_EQ(point.code, 1);
    EXPECT_EQ(point.output, "");
    EXPECT_EQ(point.complaint,
              "The filename contains the invalid character (.) \r\nPlease re-enter the filename\n");
    EXPECT_FALSE(std::filesystem::exists(file("a.hp")));
    EXPECT_EQ(runCommand({"hp", input, file("\u4E2D")}).code, 1);
    EXPECT_EQ(runCommand({"hp", input, file("\u03B1\u03B2")}).code, 0);
    EXPECT_EQ(bytesOf(file("\u03B1\u03B2")), "\"a\"\r\n");

    const Outcome reserved = runCommand({"hp", input, file("Cst")});
    EXPECT_EQ(reserved.code, 1);
    EXPECT_EQ(reserved.complaint, "The filename (Cst) is a reserved variable\r\nContinue ?\n");
    EXPECT_EQ(runCommand({"hp", input, file("Cst"), "--reserved"}).code, 0);
    EXPECT_EQ(bytesOf(file("Cst")), "\"a\"\r\n");
    // The answer Yes is to that question alone.
    EXPECT_EQ(runCommand({"hp", input, file("Drop"), "--reserved"}).code, 1);
}

TEST_F(DocumentCommands, OptimiseWritesADocumentAndCountPrintsFourLines) {
    const std::string cell = "\x9E"
                             "000000";
    const std::string input = document(cell + "a b" + cell + "\r\n");
    EXPECT_EQ(runCommand({"optimise", input, file("out"), "--partial"}).code, 0);
    EXPECT_EQ(bytesOf(file("out")), cell + "a b\r\n");
    EXPECT_EQ(runCommand({"optimise", "--total", input, input}).code, 0);
    EXPECT_EQ(bytesOf(input), " a b\r\n");
    EXPECT_EQ(runCommand({"optimise", input, file("out")}).code, 2);
    EXPECT_EQ(runCommand({"optimise", input, file("out"), "--partial", "--total"}).code, 2);

    const Outcome count = runCommand({"count", input});
    EXPECT_EQ(count.code, 0);
    EXPECT_EQ(count.output,
              "Words: 2\nCharacters (excl. spaces): 2\nCharacters (incl. spaces): 4\nParagraphs: 0\n");
}

TEST_F(DocumentCommands, SayWhichFileCannotBeUsed) {
    const Outcome missing = runCommand({"hp", file("none"), file("Out")});
    EXPECT_EQ(missing.code, 2);
    EXPECT_EQ(missing.complaint, "zoltc: " + file("none") + ": No such file or directory\n");
    EXPECT_EQ(runCommand({"hp", document("a"), file("none/Out")}).code, 2);
    EXPECT_EQ(runCommand({"hp", document("a"), file("")}).code, 2);
    EXPECT_EQ(runCommand({"check"}).code, 2);
}

TEST_F(DocumentCommands, WorkInAPipe) {
    const std::string input = document("a\"b\r\n");
    const std::string pipe = std::string("'" ZOLTC "' hp - - <'") + input + "' >'" + file("out") + "'";
    EXPECT_EQ(std::system(pipe.c_str()), 0);
    EXPECT_EQ(bytesOf(file("out")), "\"a'b\"\r\n");
    // A named pipe serves as well as "-".
    const std::string named = "mkfifo '" + file("fifo") + "' && (cat '" + input + "' >'" + file("fifo") +
                              "' & '" ZOLTC "' hp '" + file("fifo") + "' '" + file("out2") + "')";
    EXPECT_EQ(std::system(named.c_str()), 0);
    EXPECT_EQ(bytesOf(file("out2")), "\"a'b\"\r\n");
    // A full disk behind standard output is a failure that is told.
    const std::string full =
        std::string("'" ZOLTC "' hp '") + input + "' - >/dev/full 2>'" + file("err") + "'";
    EXPECT_EQ(WEXITSTATUS(std::system(full.c_str())), 2);
    EXPECT_EQ(bytesOf(file("err")), "zoltc: standard output: can't be written\n");
}

TEST_F(DocumentCommands, BothProgramsAnswerWithoutADisplay) {
    for (const std::string program : {"zolt", "zoltc"}) {
        const std::string start = "env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM '" +
                                  std::string(program == "zolt" ? ZOLT : ZOLTC) + "' ";
        const std::string end = " >'" + file("out") + "' 2>'" + file("err") + "'";
        EXPECT_EQ(std::system((start + "--version" + end).c_str()), 0);
        EXPECT_EQ(bytesOf(file("out")), program + " " ZOLT_VERSION "\n");
        EXPECT_EQ(std::system((start + "--help" + end).c_str()), 0);
        const std::string help = bytesOf(file("out"));
        EXPECT_TRUE(help.starts_with("usage: " + program + " ")) << help;
        EXPECT_LE(std::count(help.begin(), help.end(), '\n'), 24);
        EXPECT_EQ(bytesOf(file("err")), "");
    }
}

} // namespace
} // namespace zolt::cli
