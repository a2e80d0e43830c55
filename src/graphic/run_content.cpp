#include "graphic/run_content.h"

#include <algorithm>
#include <utility>

namespace zolt {

RunContent::RunContent(RichPicture picture) : m_content(std::make_unique<RichPicture>(std::move(picture))) {}

RunContent::RunContent(const RunContent &other) {
    if (const RichPicture *picture = other.picture())
        m_content = std::make_unique<RichPicture>(*picture);
    else
        append(other.characters());
}

RunContent &RunContent::operator=(const RunContent &other) {
    return *this = RunContent(other);
}

bool RunContent::operator==(const RunContent &other) const {
    const RichPicture *mine = picture();
    const RichPicture *theirs = other.picture();
    return mine && theirs ? *mine == *theirs : !mine && !theirs && characters() == other.characters();
}

const RichPicture *RunContent::picture() const {
    const Picture *picture = std::get_if<Picture>(&m_content);
    return picture ? picture->get() : nullptr;
}

std::string_view RunContent::characters() const {
    if (const Short *few = std::get_if<Short>(&m_content))
        return {few->characters.data(), few->length};
    if (const Long *many = std::get_if<Long>(&m_content))
        return **many;
    return {};
}

void RunContent::append(std::string_view more) {
    if (const Long *many = std::get_if<Long>(&m_content)) {
        **many += more;
        return;
    }
    Short &few = std::get<Short>(m_content);
    if (more.size() <= few.characters.size() - few.length) {
        std::copy(more.begin(), more.end(), few.characters.begin() + few.length);
        few.length = static_cast<std::uint8_t>(few.length + more.size());
        return;
    }
    auto many = std::make_unique<std::string>();
    many->reserve(few.length + more.size());
    (*many += characters()) += more;
    m_content = std::move(many);
}

void RunContent::dropLast() {
    if (const Long *many = std::get_if<Long>(&m_content))
        (*many)->pop_back();
    else
        --std::get<Short>(m_content).length;
}

} // namespace zolt
