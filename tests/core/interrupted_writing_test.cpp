// Saving that is cut short: by signals, by limits, by a kill; and what of a file's rights
// outlives its replacing.

#include "core/file.h"
#include "core/new_file.h"
#include "support/other_user.h"
#include "support/temporary_folder.h"

#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <random>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/xattr.h>

namespace zolt {
namespace {

using test::bytesOf;
using test::filesIn;
using test::putBytes;

/// Saves a file again and again, until a signal ends the process.
pid_t startSaving(const std::string &path, std::size_t size) {
    const pid_t child = fork();
    if (child == 0) {
        leaveNoFilesOnSignals();
        for (char letter = 'a';; letter = letter == 'z' ? 'a' : static_cast<char>(letter + 1))
            if (!writeFile(path, std::string(size, letter)).empty())
                _exit(1);
    }
    return child;
}

bool isWhole(const std::string &bytes, std::size_t size) {
    return bytes.size() == size && bytes.find_first_not_of(bytes[0]) == std::string::npos;
}

void makeOld(const std::string &path) {
    constexpr timeval longAgo[2] = {{1000, 0}, {1000, 0}};
    utimes(path.c_str(), longAgo);
}

TEST(InterruptedWriting, LeavesTheFileWholeAndNoOtherBesideIt) {
    const test::TemporaryFolder folder;
    const std::string path = folder.file("document");
    constexpr std::size_t kSize = 300000;
    putBytes(path, std::string(kSize, '-'));
    std::mt19937 random(7);
    constexpr int kSignals[] = {SIGTERM, SIGINT, SIGHUP, SIGKILL};
    for (int i = 0; i < 60; ++i) {
        const pid_t child = startSaving(path, kSize);
        usleep(static_cast<useconds_t>(random() % 15000));
        const int signal = kSignals[i % 4];
        kill(child, signal);
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << status;
        ASSERT_TRUE(isWhole(bytesOf(path), kSize)) << "try " << i;
        ASSERT_TRUE(signal == SIGKILL || filesIn(folder.path()) == 1) << "try " << i;
        for (const auto &left : std::filesystem::directory_iterator(folder.path()))
            makeOld(left.path());
        ASSERT_EQ(writeFile(path, std::string(kSize, '-')), "");
        ASSERT_EQ(filesIn(folder.path()), 1) << "left by a kill, try " << i;
    }
}

TEST(InterruptedWriting, ClearsOnlyWhatNobodyWrites) {
    const test::TemporaryFolder folder;
    for (const char *name : {".zolt-old123", ".zolt-new123", ".zolt-locked", ".zolt-mine", "zolt-old123"}) {
        putBytes(folder.file(name), "x");
        if (std::string_view(name) != ".zolt-new123")
            makeOld(folder.file(name));
    }
    const int locked = open(folder.file(".zolt-locked").c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(flock(locked, LOCK_EX), 0);
    EXPECT_EQ(writeFile(folder.file("document"), "text"), "");
    close(locked);
    EXPECT_FALSE(std::filesystem::exists(folder.file(".zolt-old123")));
    EXPECT_EQ(filesIn(folder.path()), 5);
}

TEST(InterruptedWriting, TakesALimitOfFilesForAnOrdinaryError) {
    const test::TemporaryFolder folder;
    putBytes(folder.file("document"), "old");
    const pid_t child = fork();
    if (child == 0) {
        rlimit limit{};
        getrlimit(RLIMIT_FSIZE, &limit);
        limit.rlim_cur = 1000;
        setrlimit(RLIMIT_FSIZE, &limit);
        leaveNoFilesOnSignals();
        _exit(writeFile(folder.file("document"), std::string(5000, 'n')).empty() ? 1 : 0);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(bytesOf(folder.file("document")), "old");
    EXPECT_EQ(filesIn(folder.path()), 1);
}

/// An access control list: owner rw-, user `uid` rw-, group r--, mask rw-, others ---.
std::string accessList(std::uint32_t uid) {
    struct Entry {
        std::uint16_t tag, rights;
        std::uint32_t id;
    };
    constexpr std::uint32_t kNobody = 0xFFFFFFFF;
    const Entry entries[] = {
        {1, 6, kNobody}, {2, 6, uid}, {4, 4, kNobody}, {16, 6, kNobody}, {32, 0, kNobody}};
    std::string list("\x02\0\0\0", 4);
    list.append(reinterpret_cast<const char *>(entries), sizeof entries);
    return list;
}

std::string attribute(const std::string &path, const char *name) {
    std::string value(200, '\0');
    const ssize_t size = getxattr(path.c_str(), name, value.data(), value.size());
    return size < 0 ? "none" : value.substr(0, static_cast<std::size_t>(size));
}

TEST(ReplacedFile, KeepsItsAccessListAndAttributes) {
    const test::TemporaryFolder folder;
    const std::string path = folder.file("document");
    putBytes(path, "old");
    const std::string list = accessList(12345);
    if (setxattr(path.c_str(), "system.posix_acl_access", list.data(), list.size(), 0) != 0 ||
        setxattr(path.c_str(), "user.note", "mine", 4, 0) != 0)
        GTEST_SKIP() << "the file system has no lists or attributes";
    EXPECT_EQ(writeFile(path, "new"), "");
    EXPECT_EQ(bytesOf(path), "new");
    EXPECT_EQ(attribute(path, "system.posix_acl_access"), list);
    EXPECT_EQ(attribute(path, "user.note"), "mine");
}

TEST(ReplacedFile, GivesNoGroupMoreThanBefore) {
    if (geteuid() != 0)
        GTEST_SKIP() << "the file must have the group of somebody else";
    const test::TemporaryFolder folder;
    const std::string path = folder.file("document");
    putBytes(path, "old");
    chmod(folder.path().c_str(), 0777);
    chmod(path.c_str(), 0666);
    ASSERT_EQ(chown(path.c_str(), 65534, 4321), 0);
    chmod(path.c_str(), 0660);
    ASSERT_TRUE(test::asNobody([&] { return writeFile(path, "new").empty(); }));
    struct stat status {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(bytesOf(path), "new");
    EXPECT_TRUE(status.st_gid == 4321 || (status.st_mode & 0777) == 0600) << status.st_mode;
}

} // namespace
} // namespace zolt
