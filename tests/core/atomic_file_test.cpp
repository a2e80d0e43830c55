#include "core/atomic_file.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace zolt {
namespace {

TEST(AtomicFile, TakesItsPlaceOnCommitOnly) {
    const test::TemporaryFolder folder;
    const std::string path = folder.file("file");
    test::putBytes(path, "old");
    { AtomicFile(path).append("dropped"); }
    EXPECT_EQ(test::bytesOf(path), "old");
    AtomicFile file(path);
    file.append("new ");
    file.append("text");
    EXPECT_EQ(test::bytesOf(path), "old");
    EXPECT_EQ(file.commit(), "");
    EXPECT_EQ(test::bytesOf(path), "new text");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
}

TEST(AtomicFile, KeepsTheFirstFailure) {
    const test::TemporaryFolder folder;
    AtomicFile file(folder.file("none/file"));
    file.append("text");
    EXPECT_EQ(file.commit(), "No such file or directory");
}

} // namespace
} // namespace zolt
