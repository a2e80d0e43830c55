#include "core/atomic_file.h"

#include "core/file.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <unistd.h>

namespace zolt {
namespace {

namespace fs = std::filesystem;

class AtomicFileTest : public testing::Test {
protected:
    std::string m_folder = testing::TempDir() + "zolt_atomic_" + std::to_string(::getpid()) + "/";
    std::string m_path = m_folder + "file";

    void SetUp() override { fs::create_directories(m_folder); }
    void TearDown() override { fs::remove_all(m_folder); }

    std::ptrdiff_t filesInFolder() const { return std::distance(fs::directory_iterator(m_folder), {}); }
};

TEST_F(AtomicFileTest, TakesItsPlaceOnCommitOnly) {
    writeFile(m_path, "old");
    fs::permissions(m_path, fs::perms(0640));
    fs::create_symlink("file", m_folder + "link");
    {
        AtomicFile file(m_folder + "link");
        file.append("new ");
        file.append("text");
        EXPECT_EQ(readFile(m_path).bytes, "old");
        EXPECT_EQ(file.commit(), "");
    }
    EXPECT_EQ(readFile(m_path).bytes, "new text");
    EXPECT_TRUE(fs::is_symlink(m_folder + "link"));
    EXPECT_EQ(fs::status(m_path).permissions(), fs::perms(0640));
    EXPECT_EQ(filesInFolder(), 2);
}

TEST_F(AtomicFileTest, LeavesNothingBehindWithoutACommit) {
    { AtomicFile(m_path).append("text"); }
    EXPECT_EQ(filesInFolder(), 0);
}

TEST_F(AtomicFileTest, TellsTheFirstFailure) {
    AtomicFile inNoFolder(m_folder + "none/file");
    inNoFolder.append("text");
    EXPECT_EQ(inNoFolder.commit(), "No such file or directory");
    EXPECT_EQ(AtomicFile(m_folder).commit(), "Is a directory");
    EXPECT_NE(AtomicFile("/dev/null").commit(), "");
}

} // namespace
} // namespace zolt
