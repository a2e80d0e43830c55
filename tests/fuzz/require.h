#pragma once

#include <cstdio>
#include <cstdlib>

namespace zolt::test {

/// Ends the program, and says what was found, unless `holds`.
inline void require(bool holds, const char *what) {
    if (!holds) {
        std::fprintf(stderr, "%s\n", what);
        std::abort();
    }
}

} // namespace zolt::test
