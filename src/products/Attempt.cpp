#include "products/Attempt.h"

#include "base/Dialogs.h"
#include "base/Error.h"

namespace vorlina {

void Attempt(QWidget* owner, const std::function<void()>& step) {
  try {
    step();
  } catch (const std::exception& error) {
    TheDialogs().Message(owner, DescriptionOf(error), BoxStyle::Stop);
  }
}

}  // namespace vorlina
