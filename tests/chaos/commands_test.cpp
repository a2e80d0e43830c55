// zoltc writes a file over an older one while signals, limits and other programs come in
// between: what stands there is always the old file or the new one.
//
// ZOLT_CHAOS_SECONDS says how long to go on, ZOLT_CHAOS_SEED with which numbers.

#include "chaos/hit.h"
#include "support/other_user.h"
#include "support/temporary_folder.h"

#include <chrono>
#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>

namespace zolt::test {
namespace {

using Clock = std::chrono::steady_clock;

/// A command that writes a file of its last word's name; "IN" stands for the input.
struct Command {
    std::vector<std::string> words;
    std::string inputEnding;
    std::string output;
};

const std::vector<Command> &commands() {
    static const std::vector<Command> all{
        {{"check", "IN", "--corrected", "OUT"}, "zlt", "DOC"},
        {{"hp", "IN", "OUT"}, "zlt", "DOC"},
        {{"compile", "IN", "OUT"}, "zlg", "DOC"},
        {{"preview", "IN", "OUT"}, "zlt", "DOC.png"},
        {{"preview", "IN", "OUT"}, "zlt", "DOC.rtf"},
        {{"preview", "IN", "OUT"}, "zlt", "DOC.json"},
        {{"optimise", "--total", "IN", "OUT"}, "zlt", "DOC.zlt"},
        {{"symbols", "IN", "OUT"}, "zls", "DOC.zls"},
        {{"pdf", "IN", "OUT"}, "zlt", "DOC.pdf"},
        {{"html", "IN", "OUT"}, "zlt", "DOC.html"},
        {{"image", "IN", "OUT"}, "gro", "DOC.bmp"},
    };
    return all;
}

/// A file's bytes but for the time of its making, which a PDF file tells.
std::string bytesButTime(const std::string &file) {
    std::string bytes = bytesOf(file);
    for (std::size_t at = bytes.find("(D:"); at != std::string::npos; at = bytes.find("(D:", at + 1))
        std::fill_n(bytes.begin() + static_cast<std::ptrdiff_t>(at),
                    std::min<std::size_t>(17, bytes.size() - at), '-');
    return bytes;
}

int exitCode(pid_t program) {
    int status = -1;
    ::waitpid(program, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// The document may have errors; its file is written.
bool hasDone(int code) {
    return code == 0 || code == 1;
}

class Chaos : public testing::Test {
protected:
    Chaos() {
        ::chmod(m_folder.path().c_str(), 0755);
        for (const char *folder : {"work/", "reference/"}) {
            ::mkdir(m_folder.file(folder).c_str(), 0700);
            giveToUser(m_folder.file(folder));
        }
        for (const char letter : {'a', 'b'}) {
            std::string text, symbols = " 400 \r\nOne\r\n";
            for (int line = 0; line < 2000; ++line)
                text += std::string("A line of the document ") + letter + "\r\n";
            for (int i = 0; i < 400; ++i)
                symbols += std::string("\x9E") + letter + "00000\r\nName\r\n";
            putBytes(input(letter, "zlt"), text);
            putBytes(input(letter, "zlg"), text.substr(0, text.size() / 4));
            putBytes(input(letter, "zls"), symbols);
            putBytes(input(letter, "gro"), "GROB 131 1000 " + std::string(35000, letter == 'a' ? '0' : 'F'));
        }
    }

    std::string input(char letter, const std::string &ending) const {
        return m_folder.file(std::string(1, letter) + "." + ending);
    }
    std::string work() const { return m_folder.file("work/"); }

    pid_t begin(const Command &command, char letter, const std::string &folder) const {
        std::vector<std::string> words{ZOLTC};
        for (const std::string &word : command.words)
            words.push_back(word == "IN"    ? input(letter, command.inputEnding)
                            : word == "OUT" ? folder + command.output
                                            : word);
        return startAsUser(words, {}, -1);
    }

    /// What a command makes of an input when nothing comes in between.
    const std::string &made(const Command &command, char letter) {
        std::string &bytes = m_made[{&command, letter}];
        if (bytes.empty()) {
            const auto start = Clock::now();
            exitCode(begin(command, letter, m_folder.file("reference/")));
            m_longest = std::max(m_longest, Clock::now() - start);
            bytes = bytesButTime(m_folder.file("reference/") + command.output);
        }
        return bytes;
    }

    static std::vector<std::string> filesIn(const std::string &folder) {
        std::vector<std::string> names;
        for (const auto &file : std::filesystem::directory_iterator(folder))
            names.push_back(file.path().string());
        return names;
    }

    void hitOnce(const Command &command, Hit hit);
    bool isFullHandled(const Command &command, unsigned kilobytes);

    const TemporaryFolder m_folder;
    std::map<std::pair<const Command *, char>, std::string> m_made;
    Clock::duration m_longest{};
    std::mt19937 m_random;
};

void Chaos::hitOnce(const Command &command, Hit hit) {
    const std::string file = work() + command.output;
    const std::string &old = made(command, 'a'), &fresh = made(command, 'b');
    ASSERT_NE(old, fresh);
    putBytes(file, old);
    giveToUser(file);
    ::chmod(file.c_str(), 0640);

    const Victim victim{begin(command, 'b', work()), work(), file};
    const auto longest = std::chrono::duration_cast<std::chrono::microseconds>(m_longest).count();
    ::usleep(static_cast<useconds_t>(m_random() % static_cast<unsigned>(longest + 1)));
    zolt::test::begin(hit, victim);
    ::usleep(static_cast<useconds_t>(m_random() % 5000));
    if (m_random() % 2)
        zolt::test::end(hit, victim);
    const int code = exitCode(victim.program);
    zolt::test::end(hit, victim);

    const std::string bytes = bytesButTime(file);
    EXPECT_TRUE(bytes == fresh || (bytes == old && !hasDone(code)))
        << "exit " << code << ", " << bytes.size();
    struct stat status {};
    ::stat(file.c_str(), &status);
    EXPECT_EQ(status.st_mode & 07777, 0640u);
    if (hit != Hit::Kill) {
        EXPECT_EQ(filesIn(work()), std::vector{file});
    }
    constexpr timeval longAgo[2] = {{1000, 0}, {1000, 0}};
    for (const std::string &left : filesIn(work()))
        ::utimes(left.c_str(), longAgo);
    exitCode(begin(command, 'b', work()));
    EXPECT_EQ(filesIn(work()), std::vector{file});
    EXPECT_TRUE(bytesButTime(file) == fresh);
    ::unlink(file.c_str());
}

TEST_F(Chaos, ACommandLeavesTheOldFileOrTheNewOne) {
    const unsigned seed = numberFrom("ZOLT_CHAOS_SEED", static_cast<unsigned>(std::time(nullptr)));
    m_random.seed(seed);
    std::map<std::string, int> tries;
    std::printf("seed %u\n", seed);
    const auto end = Clock::now() + std::chrono::seconds(numberFrom("ZOLT_CHAOS_SECONDS", 5));
    for (int i = 0; Clock::now() < end && !HasFailure(); ++i) {
        const Command &command = commands()[m_random() % commands().size()];
        const Hit hit = static_cast<Hit>(m_random() % static_cast<unsigned>(Hit::Count));
        SCOPED_TRACE("seed " + std::to_string(seed) + ", try " + std::to_string(i) + ": " + nameOf(hit) +
                     " during " + command.words[0] + " of " + command.output);
        hitOnce(command, hit);
        ++tries[nameOf(hit)];
    }
    for (const auto &[name, count] : tries)
        std::printf("%s: %d\n", name.c_str(), count);
}

/// In a process of its own: the folder becomes a small file system, of which a part is free.
bool Chaos::isFullHandled(const Command &command, unsigned kilobytes) {
    const std::string &old = made(command, 'a');
    const std::string options = "mode=777,size=" + std::to_string(kilobytes) + "k";
    if (::mount("tmpfs", work().c_str(), "tmpfs", 0, options.c_str()) != 0)
        return false;
    const std::string file = work() + command.output;
    putBytes(file, old);
    if (bytesOf(file) != old) { // there is not even room for that
        ::umount(work().c_str());
        return true;
    }
    giveToUser(file);
    const int code = exitCode(begin(command, 'b', work()));
    const bool isWhole = bytesButTime(file) == (hasDone(code) ? made(command, 'b') : old);
    const bool isAlone = filesIn(work()).size() == 1;
    ::umount(work().c_str());
    return isWhole && isAlone;
}

TEST_F(Chaos, AFullFileSystemLeavesTheOldFile) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root mounts a file system";
    for (const Command &command : commands()) {
        made(command, 'a');
        made(command, 'b');
        const auto size = static_cast<unsigned>(made(command, 'a').size() / 1024);
        const pid_t child = ::fork();
        if (child == 0) {
            if (::unshare(CLONE_NEWNS) != 0 ||
                ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
                ::_exit(2);
            bool isHandled = true;
            for (const unsigned room : {size + 8, size * 3 / 2 + 8, size * 2 + 32})
                isHandled = isFullHandled(command, room) && isHandled;
            ::_exit(isHandled ? 0 : 1);
        }
        const int code = exitCode(child);
        if (code == 2)
            GTEST_SKIP() << "no mounts here";
        EXPECT_EQ(code, 0) << command.words[0];
    }
}

} // namespace
} // namespace zolt::test
