#pragma once
// Share modes. Within the process a table of the open files holds them; to other processes they are told by
// advisory locks on four bytes far beyond the end of any file.

#include "platform/types.h"

#include <cstdint>

namespace platform::driver {

struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

/// What one handle does with its file and what it lets others do.
struct FileUse {
    bool reads = false;
    bool writes = false;
    bool deletes = false;
    bool letsRead = false;
    bool letsWrite = false;
    bool letsDelete = false;
};

/// Enters a use and returns its number; 0 when it collides with another use of the file. A use that neither
/// reads, writes nor deletes collides with none. The locks end when `descriptor` is closed.
int enterFileUse(const FileIdentity& file, const FileUse& use, int descriptor);

void leaveFileUse(int number);

/// Tells whether the file could be deleted now: nobody holds it without letting others delete.
bool mayDelete(const FileIdentity& file, int descriptor);

} // namespace platform::driver
