#pragma once

#include "support/temporary_folder.h"
#include "zoltc/command.h"

#include <cstdio>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace zolt::cli {

/// Runs command lines on the files of a folder of their own.
class CommandLine : public testing::Test {
protected:
    std::string path(std::string_view name) const { return m_folder.file(name); }
    void put(std::string_view name, std::string_view bytes) const { test::putBytes(path(name), bytes); }
    std::string get(std::string_view name) const { return test::bytesOf(path(name)); }
    bool exists(std::string_view name) const { return std::filesystem::exists(path(name)); }

    /// The exit code; a word that begins with "@" is a file of the folder.
    int zoltc(std::vector<std::string> words) {
        for (std::string &word : words)
            if (word.starts_with("@"))
                word = path(word.substr(1));
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const int code = run(words);
        std::fflush(stdout);
        m_output = testing::internal::GetCapturedStdout();
        m_errors = testing::internal::GetCapturedStderr();
        return code;
    }

    /// What the last command line wrote.
    std::string m_output;
    std::string m_errors;

private:
    test::TemporaryFolder m_folder;
};

} // namespace zolt::cli
