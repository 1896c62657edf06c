// Picture files.
#include "platform/pictures.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    platform::PictureData picture;
    if (platform::decodePicture({data, size}, picture) == platform::PictureError::None) {
        const auto pixels =
            static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
        if (picture.argb.size() != pixels) __builtin_trap();
    }
    return 0;
}
