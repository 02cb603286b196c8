// How long work tells where it stands, and how it is asked to stop.
#pragma once

#include <QString>
#include <functional>

#include "base/Error.h"
#include "base/Texts.h"

namespace vorlina {

// done of total steps or bytes are finished, and the step that is named goes on. False asks the work to stop.
using Progress = std::function<bool(qint64 done, qint64 total, const QString& step)>;

// What work throws that was asked to stop, once it has put everything back as it was.
class Stopped : public Error {
 public:
  Stopped() : Error(Texts::tr("Operazione interrotta")) {}
};

// Reports where work stands. Throws Stopped when it is asked to stop; an empty progress never is.
inline void Report(const Progress& progress, qint64 done, qint64 total, const QString& step) {
  if (progress && !progress(done, total, step)) throw Stopped();
}

}  // namespace vorlina
