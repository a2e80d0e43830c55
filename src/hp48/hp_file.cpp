#include "hp48/hp_file.h"

#include "core/document.h"

namespace zolt {

std::string hpFile(std::string_view text) {
    return fileFromDocument(text);
}

} // namespace zolt
