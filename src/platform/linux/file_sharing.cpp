#include "platform/linux/file_sharing.h"

#include <algorithm>
#include <mutex>
#include <vector>

#include <fcntl.h>

namespace platform::driver {
namespace {

/// The bytes whose locks say what the holder does or denies.
enum LockByte : std::int64_t { readsByte, writesByte, deletesByte, deniesRead, deniesWrite, deniesDelete };
constexpr std::int64_t lockBase = 0x7FFFFFFFFFFFFF00;

struct OpenUse {
    int number;
    FileIdentity file;
    FileUse use;
};

struct Table {
    std::mutex guard;
    std::vector<OpenUse> uses;
    int last = 0;
};

Table& table() {
    static Table only;
    return only;
}

bool isIdle(const FileUse& use) {
    return !use.reads && !use.writes && !use.deletes;
}

bool collide(const FileUse& a, const FileUse& b) {
    const auto denied = [](const FileUse& user, const FileUse& holder) {
        return (user.reads && !holder.letsRead) || (user.writes && !holder.letsWrite) ||
               (user.deletes && !holder.letsDelete);
    };
    return !isIdle(a) && !isIdle(b) && (denied(a, b) || denied(b, a));
}

struct flock lockOf(LockByte byte, short type) {
    struct flock lock {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    lock.l_start = lockBase + byte;
    lock.l_len = 1;
    return lock;
}

/// True if another open file holds the byte.
bool heldElsewhere(int descriptor, LockByte byte) {
    struct flock lock = lockOf(byte, F_WRLCK);
    return fcntl(descriptor, F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

/// A lock may fail where the file system has none or the file is open for writing only: the process's own
/// table still binds.
void hold(int descriptor, LockByte byte) {
    struct flock lock = lockOf(byte, F_RDLCK);
    fcntl(descriptor, F_OFD_SETLK, &lock);
}

/// The locks of other processes. Those of this one have been looked at in the table, and agree with it.
bool collidesElsewhere(const FileUse& use, int descriptor) {
    const struct {
        bool matters;
        LockByte byte;
    } checks[] = {{use.reads, deniesRead},    {use.writes, deniesWrite},    {use.deletes, deniesDelete},
                  {!use.letsRead, readsByte}, {!use.letsWrite, writesByte}, {!use.letsDelete, deletesByte}};
    return std::any_of(std::begin(checks), std::end(checks),
                       [&](const auto& c) { return c.matters && heldElsewhere(descriptor, c.byte); });
}

void tellOthers(const FileUse& use, int descriptor) {
    if (use.reads) hold(descriptor, readsByte);
    if (use.writes) hold(descriptor, writesByte);
    if (use.deletes) hold(descriptor, deletesByte);
    if (!use.letsRead) hold(descriptor, deniesRead);
    if (!use.letsWrite) hold(descriptor, deniesWrite);
    if (!use.letsDelete) hold(descriptor, deniesDelete);
}

} // namespace

int enterFileUse(const FileIdentity& file, const FileUse& use, int descriptor) {
    Table& t = table();
    const std::lock_guard lock(t.guard);
    if (!isIdle(use)) {
        const bool taken = std::any_of(t.uses.begin(), t.uses.end(), [&](const OpenUse& other) {
            return other.file == file && collide(use, other.use);
        });
        if (taken || collidesElsewhere(use, descriptor)) return 0;
        tellOthers(use, descriptor);
    }
    t.uses.push_back({++t.last, file, use});
    return t.last;
}

void leaveFileUse(int number) {
    Table& t = table();
    const std::lock_guard lock(t.guard);
    std::erase_if(t.uses, [&](const OpenUse& use) { return use.number == number; });
}

bool mayDelete(const FileIdentity& file, int descriptor) {
    Table& t = table();
    const std::lock_guard lock(t.guard);
    const bool held = std::any_of(t.uses.begin(), t.uses.end(), [&](const OpenUse& other) {
        return other.file == file && !isIdle(other.use) && !other.use.letsDelete;
    });
    return !held && !heldElsewhere(descriptor, deniesDelete);
}

} // namespace platform::driver
