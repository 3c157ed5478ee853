// One command at a time does the jobs of a folder.
#pragma once

#include <string>

// Holds the folder while it lives, and lets go however the process ends. Processes that it has
// begun hold nothing, so that the command can be called again while they die.
class FolderLock {
  public:
    explicit FolderLock(const std::string& directory);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    // False where another process holds the folder. Where a file system knows no locks, nobody
    // does.
    bool held() const { return held_; }

  private:
#ifdef _WIN32
    void* file_ = nullptr;
#else
    int file_ = -1;
#endif
    bool held_ = true;
};

// The name of the lock's file in the folder; it stays there.
constexpr const char* kLockFile = "jobs/.lock";
