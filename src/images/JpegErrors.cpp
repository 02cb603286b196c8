#include "images/JpegErrors.h"

#include <cstring>

#include <jerror.h>

namespace vorlina {
namespace {

[[noreturn]] void Fail(j_common_ptr info) {
  auto* errors = reinterpret_cast<JpegErrors*>(info->err);
  errors->base.format_message(info, errors->text);
  std::longjmp(errors->back, 1);
}

// What real pictures have and nothing is missing for: another version of JFIF, Adobe's colours by another
// number, and zeros before the end.
bool IsHarmless(const jpeg_error_mgr& error) {
  if (error.msg_code == JWRN_EXTRANEOUS_DATA) return error.msg_parm.i[1] == JPEG_EOI;
  return error.msg_code == JWRN_JFIF_MAJOR || error.msg_code == JWRN_ADOBE_XFORM;
}

// A truncated or damaged file decodes with mere warnings, so a warning is a failure. Trace messages are not
// shown.
void Emit(j_common_ptr info, int level) {
  if (level < 0 && !IsHarmless(*info->err)) Fail(info);
}

// A few hundred bytes a scan can keep the decoder busy for minutes; cameras and programs write about ten.
void LimitScans(j_common_ptr info) {
  constexpr int MostScans = 200;
  if (info->is_decompressor == FALSE ||
      reinterpret_cast<j_decompress_ptr>(info)->input_scan_number <= MostScans)
    return;
  auto* errors = reinterpret_cast<JpegErrors*>(info->err);
  std::strcpy(errors->text, "too many scans");
  std::longjmp(errors->back, 1);
}

void Ignore(j_common_ptr) {}

}  // namespace

jpeg_error_mgr* JpegErrors::Install() {
  jpeg_std_error(&base);
  base.error_exit = Fail;
  base.emit_message = Emit;
  base.output_message = Ignore;
  text[0] = '\0';
  progress = {};
  progress.progress_monitor = LimitScans;
  return &base;
}

}  // namespace vorlina
