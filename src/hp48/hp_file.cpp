#include "hp48/hp_file.h"

#include "core/document.h"

#include <utility>

namespace zolt {

std::string hpFile(std::string text) {
    return fileFromDocument(std::move(text));
}

} // namespace zolt
