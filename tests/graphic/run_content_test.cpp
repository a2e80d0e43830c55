#include "graphic/rich_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace zolt {
namespace {

/// No byte of it is 0, and it stands right behind the content.
constexpr CharFormat kFormat{.font = 0x0101,
                             .halfPoints = 0x0202,
                             .colour = 0x03030303,
                             .bold = true,
                             .italic = true,
                             .underline = true,
                             .strikeThru = true};

/// A run, and its content as a plain variant of its two kinds.
struct Both {
    zolt::Run run{kFormat, ""};
    std::variant<std::string, RichPicture> plain;
};

std::string randomCharacters(std::mt19937 &random) {
    std::string characters(random() % (random() % 4 == 0 ? 40 : 10), ' ');
    std::generate(characters.begin(), characters.end(), [&] { return static_cast<char>(random()); });
    return characters;
}

/// Changes one of the values, or a pair of them.
void change(std::vector<Both> &values, std::mt19937 &random) {
    Both &one = values[random() % values.size()];
    Both &other = values[random() % values.size()];
    const std::string some = randomCharacters(random);
    auto *text = std::get_if<std::string>(&one.plain);
    switch (random() % 6) {
    case 0:
        one.run.content = some;
        one.plain = some;
        break;
    case 1:
        one.plain = RichPicture{RichPicture::Kind::Bmp, some, 15, 30};
        one.run.content = std::get<RichPicture>(one.plain);
        break;
    case 2:
        one = other;
        break;
    case 3:
        std::swap(one, other);
        break;
    case 4:
        if (text && !text->empty()) {
            one.run.content.dropLast();
            text->pop_back();
        }
        break;
    default:
        if (text && text->size() < 100) {
            const bool itself = random() % 4 == 0;
            one.run.content.append(itself ? one.run.content.characters() : some);
            text->append(itself ? *text : some);
        }
    }
}

TEST(RunContent, IsAValueLikeAStringOrAPicture) {
    std::mt19937 random(7);
    std::vector<Both> values(5);
    for (int round = 0; round < 5000; ++round) {
        change(values, random);
        const std::vector<Both> copies = values;
        values.push_back(copies.front()); // all move
        values.erase(values.begin());
        for (const auto &[run, plain] : copies) {
            const auto *picture = std::get_if<RichPicture>(&plain);
            ASSERT_EQ(run.content.picture() != nullptr, picture != nullptr);
            EXPECT_EQ(run.content.characters(), picture ? "" : std::get<std::string>(plain));
            EXPECT_TRUE(!picture || *run.content.picture() == *picture);
            EXPECT_EQ(run.format, kFormat);
            for (const Both &other : values)
                EXPECT_EQ(run.content == other.run.content, plain == other.plain);
        }
    }
}

} // namespace
} // namespace zolt
