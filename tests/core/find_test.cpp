#include "core/find.h"

#include "core/letter_case.h"

#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

namespace zolt {
namespace {

/// The characters at `position` (from 1), as many as `find` has, compared with it.
bool matchesAt(const std::string &text, std::size_t position, const std::string &find, bool matchCase) {
    const std::string there = text.substr(position - 1, find.size());
    return matchCase ? there == find : capitals(there) == capitals(find);
}

/// The scan, position by position. 0 if nothing was found.
std::size_t scannedSlowly(const std::string &text, const std::string &find, bool matchCase,
                          std::size_t cursor) {
    for (std::size_t i = cursor + 1; i <= text.size(); ++i)
        if (matchesAt(text, i, find, matchCase))
            return i;
    return 0;
}

/// Replace all as scans over a text that changes with every replacement.
ReplaceAllResult replacedSlowly(std::string text, const std::string &find, bool matchCase,
                                const std::string &by) {
    ReplaceAllResult result;
    result.outcome = ReplaceAllResult::Finished;
    while (const std::size_t i = scannedSlowly(text, find, matchCase, result.posiçãoCursor)) {
        text.replace(i - 1, find.size(), by);
        result.offsets.push_back(i - 1 + result.replacements * (find.size() - by.size()));
        ++result.replacements;
        result.posiçãoCursor = i - 1 + by.size();
        if (result.posiçãoCursor + 1 > text.size()) {
            result.outcome = ReplaceAllResult::EndedAtTheEnd;
            break;
        }
    }
    result.text = text;
    result.caret = text.size();
    return result;
}

class Finding : public testing::TestWithParam<bool> {
protected:
    std::string randomText(std::size_t longest) {
        std::string text;
        for (std::size_t left = m_random() % (longest + 1); left > 0; --left)
            text += std::string_view("aAb\xE9")[m_random() % 4];
        return text;
    }

private:
    std::minstd_rand m_random{3};
};

TEST_P(Finding, EqualsTheSlowScan) {
    for (int round = 0; round < 20000; ++round) {
        const std::string text = randomText(20);
        const std::string find = randomText(3);
        const std::string by = randomText(4);
        for (std::size_t cursor = 0; cursor <= text.size() + 1; ++cursor) {
            const ScanResult result = scan(text, {find, GetParam()}, cursor);
            const std::size_t slow = scannedSlowly(text, find, GetParam(), cursor);
            ASSERT_EQ(result.outcome, slow ? ScanResult::Matched : ScanResult::NotFound);
            ASSERT_EQ(result.position, slow ? slow : cursor < text.size() ? text.size() : 0);
        }
        const ReplaceAllResult result = replaceAll(text, {find, GetParam()}, by);
        if (find.empty() || by.empty()) {
            ASSERT_EQ(result.outcome, ReplaceAllResult::NothingToDo);
            continue;
        }
        const ReplaceAllResult slow = replacedSlowly(text, find, GetParam(), by);
        ASSERT_EQ(result.outcome, slow.outcome);
        ASSERT_EQ(result.text, slow.text);
        ASSERT_EQ(result.replacements, slow.replacements);
        ASSERT_EQ(result.offsets, slow.offsets);
        ASSERT_EQ(result.posiçãoCursor, slow.posiçãoCursor);
        ASSERT_EQ(result.caret, slow.caret);
    }
}

INSTANTIATE_TEST_SUITE_P(MatchCase, Finding, testing::Bool());

/// Counts what is read.
TextReader readerOf(const std::string &text, std::size_t &read) {
    return [&](std::size_t offset, std::size_t length) {
        read += length;
        return text.substr(offset, length);
    };
}

TEST(Find, LooksAcrossTheStretchesOfALongText) {
    constexpr std::size_t kLength = 400000;
    const std::string find = "needle";
    std::vector<std::size_t> stretches;
    const auto note = [&](std::size_t position, std::size_t) {
        stretches.push_back(position - 1);
        return true;
    };
    scan(std::string(kLength, 'x'), {find, true}, 0, note);
    ASSERT_GT(stretches.size(), 5u);
    for (const std::size_t stretch : {stretches[1], stretches[2], stretches[5]}) {
        for (std::size_t place = stretch - 7; place <= stretch + 1; ++place) {
            std::string text(kLength, 'x');
            text.replace(place, find.size(), find);
            std::size_t read = 0;
            EXPECT_EQ(scan(readerOf(text, read), kLength, {"NEEDLE", false}, 0).position, place + 1);
            EXPECT_LT(read, 4 * place) << "it goes no further than it must";
            EXPECT_EQ(replaceAll(text, {find, true}, "y").replacements, 1u);
        }
    }
    // What is looked for may be longer than a stretch, and than the text.
    const std::string half(kLength / 2, 'x');
    EXPECT_EQ(scan(std::string(kLength, 'x'), {half, true}, kLength / 2).position, kLength / 2 + 1);
    EXPECT_EQ(scan(half, {half + "x", true}, 0).outcome, ScanResult::NotFound);
}

TEST(Find, AStopBeforeTheFirstCharacterChangesNothing) {
    const auto stop = [](std::size_t, std::size_t) { return false; };
    EXPECT_EQ(replaceAll("aaa", {"a", true}, "b", stop).text, "aaa");
    EXPECT_EQ(textWithReplaced("abc", {1, 2, 9}, 2, "x"), "axxx") << "what lies outside counts as the end";
}

} // namespace
} // namespace zolt
