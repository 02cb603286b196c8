#include "publish/WidgetPublishProgress.h"

#include "base/WidgetHeldKeys.h"

namespace vorlina {

bool WidgetPublishProgress::Report(int done, int total, const QString& step) {
  if (box_ == nullptr) {
    box_ = std::make_unique<WidgetProgressBox>(&owner_, step);
    box_->setWindowTitle(Texts::tr("Pubblicazione"));
    IgnoreHeldKeys(*box_);
  }
  box_->SetText(step);
  return box_->Reporter()(done, total, {});
}

}  // namespace vorlina
