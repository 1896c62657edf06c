#pragma once

#include <cstdint>
#include <vector>

namespace host {

class Picture;

/// The picture as a file that LoadPicture reads back: the bytes that it was read from or, if it was made from
/// a handle, a bitmap file of 32 bits (1 bit for a bitmap of 1 bit), an icon or cursor file of one size, or
/// an enhanced metafile. Nothing for the empty picture.
std::vector<std::uint8_t> pictureFile(const Picture& picture);

} // namespace host
