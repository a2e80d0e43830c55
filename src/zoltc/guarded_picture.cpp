#include "zoltc/guarded_picture.h"

#include "core/descriptor.h"
#include "zoltc/picture_decoders.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <string_view>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

#if defined(__SANITIZE_ADDRESS__)
#define ZOLT_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#define ZOLT_ADDRESS_SANITIZER __has_feature(address_sanitizer)
#else
#define ZOLT_ADDRESS_SANITIZER 0
#endif

namespace zolt::cli {

namespace {

constexpr rlim_t kMostSeconds = 8;

/// The system warns at the first limit and kills behind it.
void limit(decltype(RLIMIT_CPU) resource, rlim_t most) {
    const rlimit values{most, most + 1};
    ::setrlimit(resource, &values);
}

/// The addresses that this process takes, in bytes; 0 if the system doesn't tell. Only
/// what comes on top is the decoder's.
rlim_t addressesTaken() {
    rlim_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    return pages * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE));
}

void limitThisProcess(rlim_t mostBytes) {
    limit(RLIMIT_CORE, 0);
    limit(RLIMIT_CPU, kMostSeconds);
    // The sanitizer takes more addresses than any limit would leave it.
    if (const rlim_t taken = addressesTaken(); taken > 0 && !ZOLT_ADDRESS_SANITIZER)
        limit(RLIMIT_AS, taken + mostBytes);
}

/// The decoders' own words would come before the command's.
void beSilent() {
    if (const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC); nowhere >= 0)
        ::dup2(nowhere, STDERR_FILENO);
}

bool writeAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ::ssize_t written = ::write(fd, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            return false;
        bytes.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
    return true;
}

std::string readAll(int fd) {
    std::string bytes;
    char piece[4096];
    for (::ssize_t got; (got = ::read(fd, piece, sizeof piece)) != 0;)
        if (got > 0)
            bytes.append(piece, static_cast<std::size_t>(got));
        else if (errno != EINTR)
            break;
    return bytes;
}

/// What the decoding process does: it hands on the dots, a byte each, or the reason, and
/// ends without what a program does at its end.
[[noreturn]] void decode(const PictureDecoders &decoders, const std::string &file, int width, int height,
                         rlim_t mostBytes, int output) {
    limitThisProcess(mostBytes);
    beSilent();
    DecodedPicture picture = decoders.ofFile(file, width, height);
    std::string answer = std::move(picture.reason);
    const bool isDone = answer.empty();
    for (int y = 0; isDone && y < picture.dots.height(); ++y)
        answer.append(picture.dots.row(y), picture.dots.row(y) + picture.dots.width());
    const bool whole = writeAll(output, answer);
    ::_exit(!whole ? Unusable : isDone ? Done : picture.isTooLarge ? Refused : Unusable);
}

DotSurface surfaceOf(std::string_view dots, int width, int height) {
    DotSurface surface(width, height);
    for (int y = 0; y < surface.height(); ++y, dots.remove_prefix(static_cast<std::size_t>(width)))
        for (int x = 0; x < width; ++x)
            surface.setDot(x, y, dots[static_cast<std::size_t>(x)] != 0);
    return surface;
}

GuardedPicture pictureOf(std::string answer, int status, int width, int height) {
    if (WIFSIGNALED(status)) {
        return {{{},
                 WTERMSIG(status) == SIGXCPU
                     ? "decoding the picture takes too long"
                     : "the picture can't be decoded in the memory that there is for it"},
                Refused};
    }
    const auto exit = static_cast<Exit>(WEXITSTATUS(status));
    const bool isWhole =
        exit != Done || answer.size() == static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    if (answer.empty() || !isWhole)
        return {{{}, "can't be decoded"}, Unusable};
    if (exit != Done)
        return {{{}, std::move(answer)}, exit};
    return {{surfaceOf(answer, width, height), {}}, Done};
}

} // namespace

GuardedPicture readGuardedPicture(const std::string &file, int width, int height, std::uint64_t mostBytes) {
    std::string reason;
    const PictureDecoders *const decoders = pictureDecoders(reason);
    if (!decoders)
        return {{{}, reason}, Unusable};
    int ends[2] = {-1, -1};
    if (::pipe2(ends, O_CLOEXEC) != 0)
        return {{{}, reasonOf(errno)}, Unusable};
    const Descriptor input(ends[0]);
    const ::pid_t child = ::fork();
    if (child == 0)
        decode(*decoders, file, width, height, mostBytes, ends[1]);
    const int error = errno;
    ::close(ends[1]);
    if (child < 0)
        return {{{}, reasonOf(error)}, Unusable};
    std::string answer = readAll(input.get());
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return pictureOf(std::move(answer), status, width, height);
}

} // namespace zolt::cli
