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

int ScansOf(j_common_ptr info) {
  return info->is_decompressor == FALSE ? 0 : reinterpret_cast<j_decompress_ptr>(info)->input_scan_number;
}

// The warnings that mean lost picture data: a file cut short, a code of the scan that does not exist, a
// segment of it that is too short or too long. Bytes between other markers, the parameters that some phones
// leave empty in a scan's head, and oddities of old headers lose nothing, and every viewer shows such
// pictures whole.
bool LosesPictureData(j_common_ptr info) {
  const jpeg_error_mgr& error = *info->err;
  switch (error.msg_code) {
    case JWRN_JPEG_EOF:
    case JWRN_HIT_MARKER:
    case JWRN_HUFF_BAD_CODE:
    case JWRN_ARITH_BAD_CODE:
    case JWRN_BOGUS_PROGRESSION:
    case JWRN_MUST_RESYNC:
      return true;
    case JWRN_EXTRANEOUS_DATA:
      // Only in a scan does a restart marker end a segment of it.
      return ScansOf(info) > 0 && error.msg_parm.i[1] >= JPEG_RST0 && error.msg_parm.i[1] <= JPEG_RST0 + 7;
    default:
      return false;
  }
}

// A truncated or damaged file decodes with mere warnings. Trace messages are not shown.
void Emit(j_common_ptr info, int level) {
  if (level < 0 && LosesPictureData(info)) Fail(info);
}

// A few hundred bytes a scan can keep the decoder busy for minutes; cameras and programs write about ten.
void LimitScans(j_common_ptr info) {
  constexpr int MostScans = 200;
  if (ScansOf(info) <= MostScans) return;
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
