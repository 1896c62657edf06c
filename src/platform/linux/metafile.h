#pragma once
// What the handle of an enhanced metafile stands for: its records, whose header has been looked at.

#include "platform/linux/handle_table.h"
#include "platform/metafiles.h"

#include <optional>
#include <vector>

namespace platform::driver {

struct Metafile : Object {
    static constexpr HandleKind objectKind = HandleKind::MetaFile;
    Metafile() : Object(objectKind) {}

    std::vector<BYTE> bytes;

    /// The header; fields that an old, shorter one lacks are 0.
    ENHMETAHEADER header() const;
};

/// Enters a metafile of these bytes; no handle when their header is broken.
HENHMETAFILE addMetafile(std::vector<BYTE> bytes);

/// Calls `each` with every record from the header to the end record, until it returns false. False when it
/// did, or at the first record whose size is wrong.
bool forEachRecord(const Metafile& metafile, const MetafileEnumerator& each);

/// The whole of a file; nothing when it can't be read or is too long for a metafile.
std::optional<std::vector<BYTE>> readMetafileFile(const char16_t* name);
bool writeMetafileFile(const char16_t* name, const std::vector<BYTE>& bytes);

} // namespace platform::driver
