#include "core/atomic_file.h"

#include "support/other_user.h"
#include "support/temporary_folder.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace zolt {
namespace {

/// A file that may be written, in a folder that doesn't let it be replaced: closed to
/// others, or sticky as /tmp is. Beside it a folder for temporary files.
class FileThatStays : public testing::TestWithParam<mode_t> {
protected:
    void SetUp() override {
        if (geteuid() != 0 && GetParam() != 0555)
            GTEST_SKIP() << "the file must belong to somebody else";
        for (const char *name : {"in/", "tmp/"})
            std::filesystem::create_directory(m_folder.file(name));
        chmod(m_folder.path().c_str(), 0755);
        chmod(m_folder.file("tmp").c_str(), 0777);
        test::putBytes(path(), kOld);
        chmod(path().c_str(), 0666);
        std::filesystem::create_hard_link(path(), m_folder.file("link"));
        chmod(m_folder.file("in").c_str(), GetParam());
    }
    void TearDown() override { chmod(m_folder.file("in").c_str(), 0755); }

    std::string path() const { return m_folder.file("in/file"); }
    std::ptrdiff_t filesIn(const char *name) const { return test::filesIn(m_folder.file(name)); }

    /// Appends some bytes and commits them, where no file can grow beyond `limit`.
    /// Gives the reason in a file, since all this happens to somebody who isn't root.
    std::string commitAsNobody(std::size_t bytes, rlim_t limit) const {
        test::asNobody([&] {
            setenv("TMPDIR", m_folder.file("tmp").c_str(), 1);
            AtomicFile file(path());
            file.append(std::string(bytes, 'n'));
            test::limitFiles(limit);
            test::putBytes(m_folder.file("tmp/reason"), file.commit());
            return true;
        });
        return test::bytesOf(m_folder.file("tmp/reason"));
    }

    const std::string kOld = std::string(3000, 'o');
    test::TemporaryFolder m_folder;
};

TEST_P(FileThatStays, IsWrittenInPlace) {
    for (const std::size_t size : {200000, 10, 0}) {
        EXPECT_EQ(commitAsNobody(size, RLIM_INFINITY), "");
        EXPECT_EQ(test::bytesOf(path()), std::string(size, 'n'));
    }
    EXPECT_EQ(test::bytesOf(m_folder.file("link")), "");
    EXPECT_EQ(filesIn("in"), 1);
    EXPECT_EQ(filesIn("tmp"), 1);
}

TEST_P(FileThatStays, GetsItsOldBytesBackOnAFullDisk) {
    EXPECT_EQ(commitAsNobody(200000, 4096), "File too large");
    EXPECT_EQ(test::bytesOf(path()), kOld);
    EXPECT_EQ(filesIn("in"), 1);
    EXPECT_EQ(filesIn("tmp"), 1);
}

INSTANTIATE_TEST_SUITE_P(Folders, FileThatStays, testing::Values(0555, 01777));

} // namespace
} // namespace zolt
