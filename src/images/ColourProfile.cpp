#include "images/ColourProfile.h"

#include <QColorSpace>

#include <lcms2.h>

namespace vorlina {
namespace {

using Samples = ColourProfile::Samples;

struct Form {
  cmsColorSpaceSignature space;
  cmsUInt32Number format;
};

Form FormOf(Samples samples) {
  switch (samples) {
    case Samples::Grey:
      return {cmsSigGrayData, TYPE_GRAY_8};
    case Samples::Rgb:
      return {cmsSigRgbData, TYPE_RGB_8};
    case Samples::Cmyk:
      return {cmsSigCmykData, TYPE_CMYK_8};
    case Samples::InvertedCmyk:
      break;
  }
  return {cmsSigCmykData, TYPE_CMYK_8_REV};
}

// The common one, which need not be compared by the other library.
bool IsSrgb(const QByteArray& icc) { return QColorSpace::fromIccProfile(icc) == QColorSpace::SRgb; }

using Profile = std::unique_ptr<void, decltype(&cmsCloseProfile)>;

}  // namespace

ColourProfile::ColourProfile(const QByteArray& icc, Samples samples) {
  if (icc.isEmpty() || (samples == Samples::Rgb && IsSrgb(icc))) return;
  // A context of its own: the library's errors and caches are shared with no other thread.
  context_ = std::shared_ptr<void>(cmsCreateContext(nullptr, nullptr), cmsDeleteContext);
  auto* const context = static_cast<cmsContext>(context_.get());
  const Profile from(cmsOpenProfileFromMemTHR(context, icc.constData(), cmsUInt32Number(icc.size())),
                     cmsCloseProfile);
  const Form form = FormOf(samples);
  if (from == nullptr || cmsGetColorSpace(from.get()) != form.space) return;
  const Profile to(cmsCreate_sRGBProfileTHR(context), cmsCloseProfile);
  // The intent is what viewers take for pictures.
  void* transform =
      cmsCreateTransformTHR(context, from.get(), form.format, to.get(), TYPE_RGB_8, INTENT_PERCEPTUAL, 0);
  if (transform != nullptr) transform_ = std::shared_ptr<void>(transform, cmsDeleteTransform);
}

void ColourProfile::ToRgb(const std::uint8_t* samples, std::uint8_t* rgb, int pixels) const {
  cmsDoTransform(transform_.get(), samples, rgb, cmsUInt32Number(pixels));
}

}  // namespace vorlina
