// Ends the process, or has the call fail, at one of the calls that change a folder, counted from 1. To be
// included by one file of a runner.
#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace vorlina {

inline int dieAtCall = 0;  // 0 never
inline int failAtCall = 0;
inline int folderCalls = 0;

// Whether this call is to fail.
inline bool FailFolderCall() {
  if (dieAtCall == 0 && failAtCall == 0) return false;
  ++folderCalls;
  if (folderCalls == dieAtCall) _exit(9);
  if (folderCalls != failAtCall) return false;
  errno = EACCES;
  return true;
}

}  // namespace vorlina

// In the place of the system's own, for this program and the libraries that it uses.
#define VORLINA_EXPORT extern "C" __attribute__((visibility("default")))
VORLINA_EXPORT int rename(const char* from, const char* to) noexcept {
  return vorlina::FailFolderCall() ? -1 : renameat(AT_FDCWD, from, AT_FDCWD, to);
}
VORLINA_EXPORT int unlink(const char* path) noexcept {
  return vorlina::FailFolderCall() ? -1 : unlinkat(AT_FDCWD, path, 0);
}
VORLINA_EXPORT int rmdir(const char* path) noexcept {
  return vorlina::FailFolderCall() ? -1 : unlinkat(AT_FDCWD, path, AT_REMOVEDIR);
}
VORLINA_EXPORT int mkdir(const char* path, mode_t mode) noexcept {
  return vorlina::FailFolderCall() ? -1 : mkdirat(AT_FDCWD, path, mode);
}
