#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace zolt::test {

/// What happens to a program, or to the files under it, while it works.
enum class Hit {
    Kill,
    Terminate,
    Interrupt,
    HangUp,
    FullDisk,      // no file grows beyond a few bytes
    FolderForbids, // no file is made, renamed or taken away
    FileIsReadOnly,
    FolderIsGone,
    Count
};
const char *nameOf(Hit hit);
/// The signal of a hit that ends the program, else 0.
int signalOf(Hit hit);

/// A file in a folder of its own, in use by a program that isn't root.
struct Victim {
    pid_t program;
    std::string folder; // ends in "/"
    std::string file;
};

/// Begins a hit, and ends one that isn't for good.
void begin(Hit hit, const Victim &victim);
void end(Hit hit, const Victim &victim);

/// Runs a program, which may not do more than any user. `standardOutput` becomes its own
/// if it isn't negative.
pid_t startAsUser(const std::vector<std::string> &words, const std::vector<std::string> &environment,
                  int standardOutput);
/// Gives a file or folder to that user.
void giveToUser(const std::string &path);

/// The number that a variable of the environment holds.
unsigned numberFrom(const char *variable, unsigned otherwise);

} // namespace zolt::test
