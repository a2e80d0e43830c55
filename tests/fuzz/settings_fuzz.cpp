#include "core/extra_settings.h"
#include "core/settings.h"
#include "fuzz/memory_file.h"
#include "fuzz/require.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace {

using zolt::test::require;

void checkSettings(std::string_view bytes) {
    const auto settings = zolt::settingsFromFile(bytes);
    if (!settings)
        return;
    const std::string file = zolt::fileFromSettings(*settings);
    require(zolt::settingsFromFile(file) == settings, "other settings after a round trip");
    for (const std::string *text : {&settings->Language, &settings->DefltDir, &settings->ChrTbFnt})
        require(text->find_first_of(",\r\n") == std::string::npos, "a text that reaches over its field");
    for (const std::string *colour : {&settings->TFntColr, &settings->TFntBckC})
        require(std::to_string(std::stol(*colour)) == *colour, "a colour that is no number");
}

void checkExtraSettings(std::string_view bytes) {
    static const zolt::test::MemoryFile file;
    file.put(bytes);
    const auto settings = zolt::readExtraSettings(file.path());
    require(settings.keepsThrownAway || bytes.find("KeepThrownAway=False") != std::string_view::npos,
            "a setting that nobody made");
}

} // namespace

/// Settings that are read come back from their own file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char *>(data), size);
    checkSettings(bytes);
    checkExtraSettings(bytes);
    return 0;
}
