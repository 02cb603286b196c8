// Starts the update programme, which is no part of this program.
#pragma once

#include <QString>
#include <functional>

namespace vorlina {

// The update programme of the language in use, beside the program or in the application folder; "" where
// there is none.
QString UpdaterPath();

enum class UpdateStart { NoUpdater, Refused, Started };

// Leaves the folder for downloads in the settings, has the windows closed and starts the update programme,
// for which the program has to end then. Where a window does not close nothing is started. Throws Error.
UpdateStart AvviaAggiornamento(const std::function<bool()>& closeWindows);

}  // namespace vorlina
