#pragma once

#include <csignal>
#include <string>

namespace zolt {

/// While one stands, signals that would end the program wait; only a kill comes through.
class SignalsWait {
public:
    SignalsWait();
    ~SignalsWait();
    SignalsWait(const SignalsWait &) = delete;
    SignalsWait &operator=(const SignalsWait &) = delete;

private:
    sigset_t m_before;
};

/// A new file beside the one that it is to replace. Where the file system can do so it
/// has no name until it is whole, and a program that ends early leaves nothing.
class NewFile {
public:
    NewFile() = default;
    ~NewFile() { discard(); }
    NewFile(const NewFile &) = delete;
    NewFile &operator=(const NewFile &) = delete;

    /// Makes the file, readable by its owner alone, in the folder of `target`, and clears
    /// away what programs that were killed left there. False, with the error in `errno`,
    /// if the folder takes no file.
    bool make(const std::string &target);
    /// Takes over a file that stands elsewhere.
    void adopt(int fd, std::string name);

    bool isOpen() const { return m_fd >= 0; }
    int get() const { return m_fd; }

    /// Puts it in the place of `target`, at once. False, with the error in `errno`, if
    /// that fails.
    bool replace(const std::string &target);
    /// Closes it, and takes it away unless it is in its place.
    void discard();

private:
    int m_fd = -1;
    std::string m_name;
};

/// Calls `handler` for the signals that end a program from outside: SIGINT, SIGTERM and
/// SIGHUP. One that was ignored at the start stays so.
void onEndingSignals(void (*handler)(int signal));

/// Ends the program by SIGINT, SIGTERM or SIGHUP only after the new files of that moment
/// have been taken away, and makes a file that grows beyond the user's limit an ordinary
/// error.
void leaveNoFilesOnSignals();

} // namespace zolt
