#include "images/JpegErrors.h"

namespace vorlina {
namespace {

[[noreturn]] void Fail(j_common_ptr info) {
  auto* errors = reinterpret_cast<JpegErrors*>(info->err);
  errors->base.format_message(info, errors->text);
  std::longjmp(errors->back, 1);
}

// A truncated or damaged file decodes with mere warnings, so a warning is a failure. Trace messages are not
// shown.
void Emit(j_common_ptr info, int level) {
  if (level < 0) Fail(info);
}

void Ignore(j_common_ptr) {}

}  // namespace

jpeg_error_mgr* JpegErrors::Install() {
  jpeg_std_error(&base);
  base.error_exit = Fail;
  base.emit_message = Emit;
  base.output_message = Ignore;
  text[0] = '\0';
  return &base;
}

}  // namespace vorlina
