// The window program is hit while its user types and saves: what it saved is whole, and what
// was typed is in the file or is given back by the next start.
//
// ZOLT_CHAOS_SECONDS and ZOLT_CHAOS_SEED as for the commands.

#include "chaos/hit.h"
#include "core/document.h"
#include "core/file.h"
#include "core/kept_documents.h"
#include "graphic/rich_text.h"
#include "graphic/rtf_reader.h"
#include "support/other_user.h"
#include "support/temporary_folder.h"

#include <chrono>
#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <future>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <poll.h>
#include <random>
#include <sys/stat.h>

namespace zolt::test {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;
using std::chrono::seconds;

/// How old a typed text may get before it is on the disk; and how long the keys rest
/// until it is kept at once, with what the writing takes on a busy machine.
constexpr seconds kOldest{15};
constexpr milliseconds kRest{3400};

/// The last number of a text that counts from 1; nothing if that isn't all it does.
std::optional<int> lastNumber(const std::string &text) {
    std::string expected = "start ";
    int number = 0;
    while (expected.size() < text.size())
        expected += std::to_string(++number) + " ";
    return expected == text ? std::optional(number) : std::nullopt;
}

std::string textOf(int edition, const std::string &stored) {
    return edition == 2 ? plainText(richTextFromRtf(stored)) : stored;
}

/// A window program, what it says, and what of it must survive.
class Window {
public:
    Window(unsigned seed, int edition);
    ~Window();

    bool hasBegun() { return follow(Clock::now() + seconds(60), true); }
    /// Takes in what the program says until then.
    bool follow(Clock::time_point until, bool untilItSpeaks = false);
    void hit(Hit hit);
    void endHit(Hit hit);
    /// What is wrong with what a dead program left; empty if nothing is.
    std::string fault(Hit last);

private:
    void take(char what, int number);
    int due(Hit last) const;

    int m_edition;
    TemporaryFolder m_folder;
    Victim m_victim;
    int m_pipe = -1;
    std::string m_said;
    std::vector<Clock::time_point> m_typed; // from number 1
    int m_saved = 0;
    Clock::time_point m_calm = Clock::now(); // no hit since
    Clock::time_point m_death;
    bool m_hasEnded = false;
};

Window::Window(unsigned seed, int edition) : m_edition(edition) {
    giveToUser(m_folder.path());
    const std::string folder = m_folder.file("document/");
    m_victim = {0, folder, folder + (edition == 2 ? "text.zlg" : "text.zlt")};
    ::mkdir(folder.c_str(), 0700);
    giveToUser(folder);
    putBytes(m_victim.file, edition == 2 ? "{\\rtf1\\ansi start }" : "start ");
    giveToUser(m_victim.file);
    ::chmod(m_victim.file.c_str(), 0640);
    std::vector<std::string> environment{"QT_QPA_PLATFORM=offscreen", "LC_ALL=C.UTF-8"};
    for (const char *variable :
         {"HOME", "ZOLT_HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR"}) {
        const std::string home = m_folder.file(variable);
        ::mkdir(home.c_str(), 0700);
        giveToUser(home);
        environment.push_back(std::string(variable) + "=" + home);
    }
    int ends[2] = {-1, -1};
    if (::pipe2(ends, O_CLOEXEC) != 0)
        return;
    m_victim.program = startAsUser({CHAOS_WINDOW, m_victim.file, std::to_string(seed)}, environment, ends[1]);
    ::close(ends[1]);
    m_pipe = ends[0];
}

Window::~Window() {
    ::close(m_pipe);
}

void Window::take(char what, int number) {
    if (what == 's')
        m_saved = number;
    else
        m_typed.push_back(Clock::now());
}

bool Window::follow(Clock::time_point until, bool untilItSpeaks) {
    while (Clock::now() < until) {
        pollfd waiting{m_pipe, POLLIN, 0};
        const auto left = std::chrono::duration_cast<milliseconds>(until - Clock::now());
        if (::poll(&waiting, 1, static_cast<int>(left.count()) + 1) <= 0)
            continue;
        char piece[256];
        const ssize_t got = ::read(m_pipe, piece, sizeof piece);
        if (got <= 0)
            return false;
        m_said.append(piece, static_cast<std::size_t>(got));
        for (std::size_t end; (end = m_said.find('\n')) != std::string::npos; m_said.erase(0, end + 1))
            take(m_said[0], std::stoi(m_said.substr(2)));
        if (untilItSpeaks)
            return true;
    }
    return !untilItSpeaks;
}

void Window::hit(Hit hit) {
    begin(hit, m_victim);
    if (!signalOf(hit))
        return;
    m_death = Clock::now();
    // What it says before it dies it has done.
    m_hasEnded = !follow(m_death + seconds(30));
    ::kill(m_victim.program, SIGKILL);
    ::waitpid(m_victim.program, nullptr, 0);
}

void Window::endHit(Hit hit) {
    end(hit, m_victim);
    m_calm = Clock::now();
}

/// The last number that must be found.
int Window::due(Hit last) const {
    const int typed = static_cast<int>(m_typed.size());
    if (last != Hit::Kill)
        return typed;
    int found = m_saved;
    for (int number = 1; number <= typed; ++number) {
        const Clock::time_point since = std::max(m_typed[static_cast<std::size_t>(number - 1)], m_calm);
        const Clock::time_point next = number < typed ? m_typed[static_cast<std::size_t>(number)] : m_death;
        if (m_death - since > kOldest || next - since > kRest)
            found = std::max(found, number);
    }
    return found;
}

std::string Window::fault(Hit last) {
    if (!m_hasEnded)
        return "the program went on";
    const auto inFile = lastNumber(m_edition == 2 ? textOf(2, bytesOf(m_victim.file))
                                                  : documentFromFile(bytesOf(m_victim.file)));
    const int typed = static_cast<int>(m_typed.size());
    if (!inFile || *inFile < m_saved || *inFile > typed + 1)
        return "the file: " + bytesOf(m_victim.file);
    struct stat status {};
    ::stat(m_victim.file.c_str(), &status);
    if ((status.st_mode & 07777) != 0640)
        return "the file's rights";
    int found = *inFile;
    const KeptDocuments kept(m_folder.file("XDG_STATE_HOME/zolt"));
    for (const auto &entry : kept.leftByCrashes()) {
        const auto inEntry = lastNumber(textOf(m_edition, entry.document.bytes));
        if (!inEntry || entry.document.isDamaged || entry.document.path != m_victim.file)
            return "kept: " + entry.document.bytes;
        found = std::max(found, *inEntry);
    }
    if (found < due(last))
        return "lost: " + std::to_string(found + 1) + " to " + std::to_string(due(last)) + " of " +
               std::to_string(typed);
    constexpr timeval longAgo[2] = {{1000, 0}, {1000, 0}};
    for (const auto &left : std::filesystem::directory_iterator(m_victim.folder))
        if (last == Hit::Kill)
            ::utimes(left.path().c_str(), longAgo);
    asNobody([&] { return last != Hit::Kill || writeFile(m_victim.file, "next").empty(); });
    if (std::distance(std::filesystem::directory_iterator(m_victim.folder), {}) != 1)
        return "a file beside the document";
    return {};
}

/// One program's life; what happened, and what went wrong.
struct Life {
    std::string story;
    std::string fault;
};

Life live(unsigned seed) {
    std::mt19937 random(seed);
    Life life;
    const int edition = 1 + static_cast<int>(random() % 2);
    Window window(seed, edition);
    if (!window.hasBegun())
        return {"the start", "no start"};
    const auto some = [&random](unsigned most) { return Clock::now() + milliseconds(random() % most); };
    const bool isLong = numberFrom("ZOLT_CHAOS_SECONDS", 0) > 60;
    window.follow(some(isLong ? 20000 : 4000));
    const auto before = static_cast<Hit>(4 + random() % 5);
    life.story = edition == 2 ? "graphical, " : "textual, ";
    if (before != Hit::Count) {
        window.hit(before);
        window.follow(some(3000));
        window.endHit(before);
        window.follow(some(isLong ? 20000 : 3000));
        life.story += std::string(nameOf(before)) + ", ";
    }
    const auto last = static_cast<Hit>(random() % 4);
    life.story += nameOf(last);
    window.hit(last);
    life.fault = window.fault(last);
    return life;
}

TEST(ChaosInWindows, NothingSavedIsBrokenAndNothingTypedIsLost) {
    const unsigned seed = numberFrom("ZOLT_CHAOS_SEED", static_cast<unsigned>(std::time(nullptr)));
    const auto end = Clock::now() + seconds(numberFrom("ZOLT_CHAOS_SECONDS", 5));
    std::map<std::string, int> lives;
    std::printf("seed %u\n", seed);
    for (unsigned number = seed; Clock::now() < end && !HasFailure();) {
        std::vector<std::pair<unsigned, std::future<Life>>> together;
        for (int i = 0; i < 6; ++i, ++number)
            together.emplace_back(number, std::async(std::launch::async, live, number));
        for (auto &[each, future] : together) {
            const Life life = future.get();
            EXPECT_EQ(life.fault, "") << "seed " << each << ": " << life.story;
            ++lives[life.story];
        }
    }
    for (const auto &[story, count] : lives)
        std::printf("%s: %d\n", story.c_str(), count);
}

} // namespace
} // namespace zolt::test
