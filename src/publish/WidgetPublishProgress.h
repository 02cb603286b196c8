// The box that shows how far a publication has come. It comes with the first report, so that it does not
// stand over a question that is asked before.
#pragma once

#include <memory>

#include "base/WidgetProgressBox.h"
#include "publish/plugin/IVorlinaPlugin.h"

namespace vorlina {

class WidgetPublishProgress : public IVorlinaProgress {
 public:
  explicit WidgetPublishProgress(QWidget& owner) : owner_(owner) {}
  bool Report(int done, int total, const QString& step) override;
  // Whether the user has stopped it.
  bool IsStopped() const { return box_ != nullptr && box_->wasCanceled(); }

 private:
  QWidget& owner_;
  std::unique_ptr<WidgetProgressBox> box_;
};

}  // namespace vorlina
