#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zolt::test {

/// The files of a folder in the order of their names.
std::vector<std::string> readCorpus(const std::string &folder);

/// One input made from a corpus by a few random changes: bytes and bits changed,
/// stretches removed, repeated, cut off or taken from another file, numbers made
/// extreme. The same `run` of the same corpus gives the same input.
std::string mutated(const std::vector<std::string> &corpus, std::uint64_t run);

} // namespace zolt::test
