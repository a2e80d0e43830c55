#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <stdlib.h>
#include <string>
#include <string_view>

namespace zolt::test {

/// A folder that goes away with its contents. Its path ends in "/".
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "zolt-test-XXXXXX").string();
        if (!mkdtemp(name.data()))
            throw std::runtime_error("no temporary folder");
        m_path = name + "/";
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;

    const std::string &path() const { return m_path; }
    std::string file(std::string_view name) const { return m_path + std::string(name); }

private:
    std::string m_path;
};

/// The number of a folder's files.
inline std::ptrdiff_t filesIn(const std::string &folder) {
    return std::distance(std::filesystem::directory_iterator(folder), {});
}

/// A file's bytes, read without the program's own code.
inline std::string bytesOf(const std::string &path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

inline void putBytes(const std::string &path, std::string_view bytes) {
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

} // namespace zolt::test
