// The controls of the questions that a plug-in adds to the window that asks how to publish: a check box for
// each yes or no, a list for each choice.
#pragma once

#include <QVariantMap>
#include <vector>

#include "publish/plugin/VorlinaJob.h"

class QFormLayout;
class QWidget;

namespace vorlina {

class WidgetPublishOptions {
 public:
  // In the layout, behind the control in the order of keys.
  void Add(const QList<VorlinaOption>& options, QFormLayout& layout, QWidget& behind);
  // What is not among the values is as the plug-in has it.
  void Show(const QVariantMap& values);
  QVariantMap Read() const;

 private:
  struct Line {
    VorlinaOption option;
    QWidget* control;
  };
  std::vector<Line> lines_;
};

}  // namespace vorlina
