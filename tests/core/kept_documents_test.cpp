#include "core/kept_documents.h"

#include "support/other_user.h"
#include "support/temporary_folder.h"
#include "support/texts.h"

#include <csignal>
#include <ctime>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace zolt {
namespace {

KeptDocument sample(std::string bytes, std::int64_t time = 1'790'000'000) {
    return {.edition = 2,
            .path = "/a folder/with\nline end.zlg",
            .caption = "nome \xC3\xA9",
            .time = time,
            .pane = 2,
            .caret = 12,
            .bytes = std::move(bytes)};
}

TEST(KeptFile, GivesBackEveryByteAndAsMuchOfADamagedOneAsIsLeft) {
    const KeptDocument document = sample(test::everyByte());
    const std::string file = keptFile(document);
    EXPECT_EQ(readKeptFile(file), document);
    EXPECT_EQ(readKeptFile(keptFile({})), KeptDocument{});
    const std::size_t start = file.find(document.bytes);
    for (std::size_t length = 0; length < file.size(); ++length) {
        const auto read = readKeptFile(file.substr(0, length));
        ASSERT_EQ(read.has_value(), length >= start) << length;
        const std::string left = read ? read->bytes : std::string();
        ASSERT_EQ(left, document.bytes.substr(0, length < start ? 0 : length - start));
        ASSERT_TRUE(!read || read->isDamaged == (left.size() < document.bytes.size())) << length;
    }
    std::string changed = file;
    changed[start + 40] ^= 1;
    EXPECT_TRUE(readKeptFile(changed)->isDamaged);
}

class Kept : public testing::Test {
protected:
    /// A program that keeps a document and ends by a signal.
    void crash(const KeptDocument &document) {
        const pid_t child = fork();
        if (child == 0) {
            KeptDocuments(path()).keep(document);
            auto *other = new KeptDocuments(path());
            other->keep(document);
            raise(SIGKILL);
        }
        int status = 0;
        waitpid(child, &status, 0);
    }
    std::string path() const { return m_folder.file("state/zolt"); }
    test::TemporaryFolder m_folder;
};

TEST_F(Kept, StaysAfterACrashButIsNobodysWhileItsProgramLives) {
    KeptDocuments mine(path());
    EXPECT_EQ(mine.keep(sample("first")), "");
    EXPECT_EQ(mine.keep(sample("mine")), "");
    KeptDocuments other(path());
    EXPECT_TRUE(other.leftByCrashes().empty());
    EXPECT_TRUE(mine.leftByCrashes().empty());
    crash(sample("theirs"));
    // The program that was killed had two: the one that it left, and the one in use.
    auto left = other.leftByCrashes();
    ASSERT_EQ(left.size(), 2u);
    EXPECT_EQ(left[0].document, sample("theirs"));
    for (const auto &entry : left)
        other.remove(entry);
    EXPECT_TRUE(other.leftByCrashes().empty());
    mine.drop();
    EXPECT_EQ(mine.keep(sample("again")), "");
}

TEST_F(Kept, IsReadableByTheUserAlone) {
    KeptDocuments kept(path());
    EXPECT_EQ(kept.keep(sample("secret")), "");
    EXPECT_EQ(kept.keepThrownAway(sample("secret", std::time(nullptr))), "");
    std::size_t files = 0;
    for (const auto &entry : std::filesystem::recursive_directory_iterator(path())) {
        struct stat status {};
        ASSERT_EQ(stat(entry.path().c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 077, 0u) << entry.path();
        files += entry.is_regular_file();
    }
    EXPECT_EQ(files, 3u); // one is the lock
}

TEST_F(Kept, ThrownAwayDocumentsAreTheLastTenOfThirtyDays) {
    KeptDocuments kept(path());
    const std::int64_t now = std::time(nullptr);
    EXPECT_EQ(kept.keepThrownAway(sample("old", now - KeptDocuments::kLongest - 60)), "");
    EXPECT_TRUE(kept.thrownAway().empty());
    for (int i = 0; i < 13; ++i)
        EXPECT_EQ(kept.keepThrownAway(sample(std::to_string(i), now - 100 + i)), "");
    const auto entries = kept.thrownAway();
    ASSERT_EQ(entries.size(), KeptDocuments::kMostThrownAway);
    EXPECT_EQ(entries.front().document.bytes, "12");
    EXPECT_EQ(entries.back().document.bytes, "3");
}

} // namespace
} // namespace zolt
