#pragma once

#include "graphic/rich_picture.h"

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

namespace zolt {

/// What stands in a run: characters as bytes, with no line end in them, or one picture.
///
/// A text may have a run for every character or two, so up to 7 characters stand in the object
/// itself; more, or a picture, have memory of their own. What was moved from may only be
/// assigned or destroyed.
class RunContent {
public:
    /// No characters.
    RunContent() = default;
    template <std::convertible_to<std::string_view> Text> RunContent(const Text &characters) {
        append(characters);
    }
    RunContent(RichPicture picture);

    RunContent(const RunContent &other);
    RunContent(RunContent &&) noexcept = default;
    RunContent &operator=(const RunContent &other);
    RunContent &operator=(RunContent &&) noexcept = default;
    ~RunContent() = default;

    bool operator==(const RunContent &other) const;

    /// Null where characters stand.
    const RichPicture *picture() const;
    /// None where a picture stands. The view lasts until the content is changed or moved.
    std::string_view characters() const;

    /// Neither is for a picture. Appending is amortised: a long text may come in pieces.
    void append(std::string_view more);
    /// Takes the last of at least one character away.
    void dropLast();

private:
    struct Short {
        std::array<char, 7> characters;
        std::uint8_t length;
    };
    using Long = std::unique_ptr<std::string>;
    using Picture = std::unique_ptr<RichPicture>;

    // The padding at its end is free for what stands behind the content, such as the run's format.
    [[no_unique_address]] std::variant<Short, Long, Picture> m_content;
};

} // namespace zolt
