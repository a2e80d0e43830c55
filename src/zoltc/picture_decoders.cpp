#include "zoltc/picture_decoders.h"

#include "core/path.h"

#include <dlfcn.h>
#include <unistd.h>

namespace zolt::cli {

namespace {

/// The folder of this program, with its last slash.
std::string programFolder() {
    char path[4096];
    const ::ssize_t length = ::readlink("/proc/self/exe", path, sizeof path);
    return length > 0 ? folderOf(std::string(path, static_cast<std::size_t>(length))) : std::string();
}

} // namespace

const PictureDecoders *pictureDecoders(std::string &reason) {
    const std::string file = programFolder() + ZOLT_PICTURE_MODULE;
    // It stays until the program's end.
    void *const module = ::dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    void *const decoders = module ? ::dlsym(module, kPictureDecodersSymbol) : nullptr;
    if (!decoders)
        reason = std::string("the decoders of pictures can't be loaded: ") + ::dlerror();
    return static_cast<const PictureDecoders *>(decoders);
}

} // namespace zolt::cli
