// A step of which a failure is told, and goes no further.
#pragma once

#include <functional>

class QWidget;

namespace vorlina {

// As it would be told at the top of the event loop: no exception passes through Qt's own handling of keys and
// of the mouse, which would not end it. The box belongs to the owner.
void Attempt(QWidget* owner, const std::function<void()>& step);

}  // namespace vorlina
