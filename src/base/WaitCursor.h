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

}  // namespace vorlina
