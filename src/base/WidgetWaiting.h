// Keeps the windows on the screen while a step in the program's one thread waits and no event is taken.
#pragma once

namespace vorlina {

// To be called again and again while something waits, and with false when that is over. Shows what the
// windows had painted last, and the wait cursor; nothing of the program's own runs.
void ShowWaiting(bool waits);

}  // namespace vorlina
