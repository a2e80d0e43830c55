#include "core/file.h"

#include "support/other_user.h"
#include "support/temporary_folder.h"

#include <csignal>
#include <gtest/gtest.h>
#include <random>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zolt {
namespace {

using test::asNobody;
using test::bytesOf;
using test::limitFiles;
using test::putBytes;
using test::TemporaryFolder;

std::size_t filesIn(const std::string &folder) {
    const std::filesystem::directory_iterator entries(folder);
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

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
    EXPECT_EQ(filesIn(folder.path()), 1u);
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
    EXPECT_EQ(filesIn(folder.path()), 3u);
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

TEST(WriteFile, LeavesTheOldFileOnAFullDisk) {
    const TemporaryFolder folder;
    const std::string path = folder.file("a");
    putBytes(path, "old");
    chmod(path.c_str(), 0666);
    chmod(folder.path().c_str(), 0777);
    EXPECT_TRUE(asNobody([&] {
        limitFiles(4096);
        return writeFile(path, std::string(100000, 'x')) == "File too large";
    }));
    EXPECT_EQ(bytesOf(path), "old");
    EXPECT_EQ(filesIn(folder.path()), 1u);
}

TEST(WriteFile, LeavesAWholeFileWhenKilled) {
    const TemporaryFolder folder;
    const std::string path = folder.file("a");
    constexpr std::size_t kSize = 1 << 20;
    putBytes(path, std::string(kSize, 'a'));
    std::minstd_rand random(1);
    for (int round = 0; round < 20; ++round) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0)
            for (char letter = 'a';; letter = letter == 'z' ? 'a' : static_cast<char>(letter + 1))
                writeFile(path, std::string(kSize, letter));
        usleep(static_cast<useconds_t>(random() % 20000));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        const std::string bytes = bytesOf(path);
        ASSERT_EQ(bytes.size(), kSize);
        ASSERT_EQ(bytes.find_first_not_of(bytes.front()), std::string::npos);
    }
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

TEST(Paths, FallApartAtTheLastSeparator) {
    EXPECT_EQ(folderOf("/a/b.c/d.zlt"), "/a/b.c/");
    EXPECT_EQ(titleOf("/a/b.c/d.zlt"), "d.zlt");
    EXPECT_EQ(folderOf("d.zlt"), "");
    EXPECT_EQ(titleOf("d.zlt"), "d.zlt");
}

} // namespace
} // namespace zolt
