#include "core/file.h"

#include "support/other_user.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace zolt {
namespace {

using test::asNobody;
using test::bytesOf;
using test::filesIn;
using test::putBytes;
using test::TemporaryFolder;

mode_t modeOf(const std::string &path) {
    struct stat status {};
    stat(path.c_str(), &status);
    return status.st_mode & 07777;
}

TEST(WriteFile, MakesAndReplacesAndLeavesNothingBeside) {
    const TemporaryFolder folder;
    const std::string path = folder.file("a");
    for (const std::string &bytes :
         {std::string("first\0\xFF", 7), std::string(), std::string(300000, 'x')}) {
        EXPECT_EQ(writeFile(path, bytes), "");
        EXPECT_EQ(bytesOf(path), bytes);
        EXPECT_EQ(readFile(path).bytes, bytes);
    }
    EXPECT_EQ(filesIn(folder.path()), 1);
}

TEST(WriteFile, KeepsPermissionsAndHonoursTheMask) {
    const TemporaryFolder folder;
    const mode_t old = umask(027);
    EXPECT_EQ(writeFile(folder.file("new"), "a"), "");
    umask(old);
    EXPECT_EQ(modeOf(folder.file("new")), 0640u);
    chmod(folder.file("new").c_str(), 0604);
    EXPECT_EQ(writeFile(folder.file("new"), "b"), "");
    EXPECT_EQ(modeOf(folder.file("new")), 0604u);
}

TEST(WriteFile, WritesThroughLinks) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.file("deep"));
    putBytes(folder.file("deep/file"), "old");
    std::filesystem::create_symlink("deep/file", folder.file("inner"));
    std::filesystem::create_symlink(folder.file("inner"), folder.file("outer"));
    std::filesystem::create_symlink("nothing yet", folder.file("dangling"));
    EXPECT_EQ(writeFile(folder.file("outer"), "new"), "");
    EXPECT_EQ(writeFile(folder.file("dangling"), "made"), "");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.file("outer")));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.file("inner")));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.file("dangling")));
    EXPECT_EQ(bytesOf(folder.file("deep/file")), "new");
    EXPECT_EQ(bytesOf(folder.file("nothing yet")), "made");
}

TEST(WriteFile, SaysWhyItCannot) {
    const TemporaryFolder folder;
    std::filesystem::create_symlink("loop", folder.file("loop"));
    mkfifo(folder.file("pipe").c_str(), 0600);
    putBytes(folder.file("file"), "a");
    EXPECT_EQ(writeFile(folder.path(), "a"), "Is a directory");
    EXPECT_EQ(writeFile(folder.file("none/a"), "a"), "No such file or directory");
    EXPECT_EQ(writeFile(folder.file("file/a"), "a"), "Not a directory");
    EXPECT_EQ(writeFile(folder.file("loop"), "a"), "Too many levels of symbolic links");
    EXPECT_EQ(writeFile(folder.file("pipe"), "a"), "Not a regular file");
    EXPECT_EQ(writeFile("", "a"), "No such file or directory");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.file("loop")));
    EXPECT_EQ(filesIn(folder.path()), 3);
}

TEST(WriteFile, RefusesAReadOnlyFile) {
    const TemporaryFolder folder;
    const std::string path = folder.file("a");
    putBytes(path, "kept");
    chmod(path.c_str(), 0444);
    chmod(folder.path().c_str(), 0777);
    EXPECT_TRUE(asNobody([&] { return writeFile(path, "lost") == "Permission denied"; }));
    EXPECT_EQ(bytesOf(path), "kept");
}

TEST(ReadFile, SaysWhyItCannot) {
    const TemporaryFolder folder;
    mkfifo(folder.file("pipe").c_str(), 0600);
    putBytes(folder.file("file"), "12345");
    EXPECT_EQ(readFile(folder.file("none")).reason, "No such file or directory");
    EXPECT_EQ(readFile(folder.path()).reason, "Is a directory");
    EXPECT_EQ(readFile(folder.file("pipe")).reason, "Not a regular file");
    EXPECT_EQ(readFile(folder.file("file"), 4).reason, "File too large");
    EXPECT_EQ(readFile(folder.file("file"), 5).bytes, "12345");
}

} // namespace
} // namespace zolt
