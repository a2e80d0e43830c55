#include "desktop/exec_line.h"
#include "desktop/file_kinds.h"
#include "desktop/key_file.h"

#include <gtest/gtest.h>

namespace zolt::desktop {
namespace {

TEST(KeyFile, ChangesOneKeyAndKeepsAllElse) {
    const std::string file = "# mine\n[A]\nk = 1\nk[pt]=2\n\n[B]\r\nk=3\r\nother=x\n\n\n[A]\nk=4";
    EXPECT_EQ(valueOf(file, "A", "k"), "4");
    EXPECT_EQ(valueOf(file, "B", "k"), "3");
    EXPECT_EQ(valueOf(file, "C", "k"), "");
    EXPECT_EQ(withValue(file, "A", "k", "9"),
              "# mine\n[A]\nk=9\nk[pt]=2\n\n[B]\r\nk=3\r\nother=x\n\n\n[A]\n");
    EXPECT_EQ(withValue(file, "A", "k", ""), "# mine\n[A]\nk[pt]=2\n\n[B]\r\nk=3\r\nother=x\n\n\n[A]\n");
    EXPECT_EQ(withValue(file, "B", "new", "9"),
              "# mine\n[A]\nk = 1\nk[pt]=2\n\n[B]\r\nk=3\r\nother=x\nnew=9\n\n\n[A]\nk=4\n");
    EXPECT_EQ(withValue("[A]\nk=1", "C", "new", "9"), "[A]\nk=1\n\n[C]\nnew=9\n");
    EXPECT_EQ(withValue("", "C", "new", "9"), "[C]\nnew=9\n");
}

TEST(ExecLine, NamesAnyProgram) {
    for (const char *program : {"/usr/bin/zolt", "/a b/zolt", "/100%/%f/zolt", "/a\"b'c`d$e\\f/zolt",
                                "/a&b<c>;(d)#~|*?/zolt", "/é\n\t/z"})
        EXPECT_EQ(programOf(execLine(program)), program) << execLine(program);
    EXPECT_EQ(execLine("/a b/100%/$x\\y"), "\"/a b/100%%/\\\\$x\\\\\\\\y\" %f");
    EXPECT_EQ(programOf("vim -f %F"), "vim");
    EXPECT_EQ(programOf("  \"/opt/my app/run\" --file=%u"), "/opt/my app/run");
    EXPECT_EQ(programOf("/opt/my\\\\ app/run %f"), "/opt/my app/run");
    EXPECT_EQ(programOf(""), "");
}

TEST(FileKinds, PreferWeightThenLengthThenTheFirstFolder) {
    FileKinds kinds;
    kinds.addGlobs(
        "# made\n60:a/heavy:*.h\n50:a/long:*.tar.gz\n50:a/short:*.gz\n50:a/own:*.x\n50:a/C:*.C:cs\n"
        "50:a/c:*.c\n50:a/closed:*.new\n0:a/closed:__NOGLOBS__\n");
    kinds.addGlobs("80:a/closed:*.old\n50:a/system:*.x\n50:a/light:*.h\n");
    const std::pair<const char *, const char *> cases[] = {
        {"f.h", "a/heavy"}, {"f.tar.gz", "a/long"}, {"f.GZ", "a/short"},   {"f.x", "a/own"}, {"f.C", "a/C"},
        {"f.c", "a/c"},     {"f.old", ""},          {"f.new", "a/closed"}, {"f", ""}};
    for (const auto &[name, type] : cases)
        EXPECT_EQ(kinds.typeOf(name), type) << name;
}

} // namespace
} // namespace zolt::desktop
