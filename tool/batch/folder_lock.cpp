#include "batch/folder_lock.h"

#include "base/native_path.h"

#ifdef _WIN32

#include <windows.h>

FolderLock::FolderLock(const std::string& directory) {
    const auto path = native_path(directory + "/" + kLockFile);
    // Nobody else can open a file that is shared with nobody.
    HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        held_ = GetLastError() != ERROR_SHARING_VIOLATION;
        return;
    }
    file_ = file;
}

FolderLock::~FolderLock() {
    if (file_ != nullptr) {
        CloseHandle(file_);
    }
}

#else

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

FolderLock::FolderLock(const std::string& directory) {
    const auto path = native_path(directory + "/" + kLockFile);
    file_ = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
    if (file_ < 0) {
        return;
    }
    // Of the process, not of the file's descriptor: children do not inherit it.
    struct flock lock = {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    held_ = ::fcntl(file_, F_SETLK, &lock) == 0 || (errno != EACCES && errno != EAGAIN);
}

FolderLock::~FolderLock() {
    if (file_ >= 0) {
        ::close(file_);
    }
}

#endif
