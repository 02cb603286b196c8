// Keys that are still held when a window opens.
#pragma once

class QWidget;

namespace vorlina {

// A key that is still held from before is no answer: the window and the buttons that it has take no repeated
// ones.
void IgnoreHeldKeys(QWidget& window);

}  // namespace vorlina
