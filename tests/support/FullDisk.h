// A disk that is full after so many bytes: while the object lives, no file of this process grows beyond the
// limit.
#pragma once

#include <sys/resource.h>

#include <csignal>

namespace vorlina {

class FullDisk {
 public:
  explicit FullDisk(unsigned long bytes) {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before_); }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit before_{};
};

}  // namespace vorlina
