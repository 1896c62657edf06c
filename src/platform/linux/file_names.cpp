#include "platform/linux/file_names.h"

#include "platform/errors.h"
#include "platform/locale.h"

#include <algorithm>
#include <cerrno>

#include <sys/stat.h>

namespace platform::driver {

std::string systemPath(std::u16string_view name) {
    std::string path = utf8FromWide(name);
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

DWORD errorFromErrno(int number) {
    switch (number) {
    case 0:
        return ERROR_SUCCESS;
    case ENOENT:
        return ERROR_FILE_NOT_FOUND;
    case ENOTDIR:
    case ELOOP:
        return ERROR_PATH_NOT_FOUND;
    case EACCES:
    case EPERM:
    case EISDIR:
    case EROFS:
        return ERROR_ACCESS_DENIED;
    case EBADF:
        return ERROR_INVALID_HANDLE;
    case EEXIST:
        return ERROR_FILE_EXISTS;
    case ENOTEMPTY:
        return ERROR_DIR_NOT_EMPTY;
    case EMFILE:
    case ENFILE:
        return ERROR_TOO_MANY_OPEN_FILES;
    case ENOMEM:
        return ERROR_NOT_ENOUGH_MEMORY;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return ERROR_DISK_FULL;
    case ENAMETOOLONG:
        return ERROR_FILENAME_EXCED_RANGE;
    case EINVAL:
        return ERROR_INVALID_PARAMETER;
    case ESPIPE:
        return ERROR_SEEK;
    case ETXTBSY:
        return ERROR_SHARING_VIOLATION;
    default:
        return ERROR_GEN_FAILURE;
    }
}

DWORD errorOfPath(const std::string& path, int number) {
    if (number != ENOENT) return errorFromErrno(number);
    const std::size_t end = path.find_last_not_of('/');
    const std::size_t slash = end == std::string::npos ? end : path.find_last_of('/', end);
    if (path.empty()) return ERROR_PATH_NOT_FOUND;
    if (slash == std::string::npos || slash == 0) return ERROR_FILE_NOT_FOUND;
    struct stat folder {};
    const bool there = stat(path.substr(0, slash).c_str(), &folder) == 0 && S_ISDIR(folder.st_mode);
    return there ? ERROR_FILE_NOT_FOUND : ERROR_PATH_NOT_FOUND;
}

} // namespace platform::driver
