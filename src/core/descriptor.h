#pragma once

#include <cstring>
#include <string>
#include <unistd.h>

namespace zolt {

/// An open file that closes itself.
class Descriptor {
public:
    explicit Descriptor(int fd) : m_fd(fd) {}
    ~Descriptor() {
        if (m_fd >= 0)
            ::close(m_fd);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    int get() const { return m_fd; }
    bool isOpen() const { return m_fd >= 0; }

private:
    int m_fd;
};

/// A failure of the system in words.
inline std::string reasonOf(int error) {
    return std::strerror(error);
}

} // namespace zolt
