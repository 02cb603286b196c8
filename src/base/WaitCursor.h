// The wait cursor, for as long as a procedure is at work.
#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace vorlina {

class WaitCursor {
 public:
  WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
};

// The plain cursor, while a box is up in the middle of it.
class PlainCursor {
 public:
  PlainCursor() : needed_(QGuiApplication::overrideCursor() != nullptr) {
    if (needed_) QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
  }
  ~PlainCursor() {
    if (needed_) QGuiApplication::restoreOverrideCursor();
  }
  PlainCursor(const PlainCursor&) = delete;
  PlainCursor& operator=(const PlainCursor&) = delete;

 private:
  bool needed_;
};

}  // namespace vorlina
