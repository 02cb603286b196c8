// libjpeg's failures as a jump back to the caller's setjmp: the library is C, and no exception may pass
// through it.
#pragma once

#include <csetjmp>
#include <cstddef>
#include <cstdio>

#include <jpeglib.h>

namespace vorlina {

struct JpegErrors {
  jpeg_error_mgr base;
  std::jmp_buf back;
  char text[JMSG_LENGTH_MAX];
  jpeg_progress_mgr progress;  // for cinfo.progress of a decompressor: it bounds the time

  // Fills in the handlers and gives what goes into cinfo.err.
  jpeg_error_mgr* Install();
};

// The most memory that libjpeg may take for one picture: a file of a few hundred bytes can ask for gigabytes.
inline constexpr long JpegMemory = 256L * 1024 * 1024;

}  // namespace vorlina
