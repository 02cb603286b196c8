// Work on many things at once, by as many threads as are of use.
#pragma once

#include <cstddef>
#include <functional>

namespace publishing {

// What one thread does with the thing of this number.
using Work = std::function<void(std::size_t)>;

// Does everything from 0 to count - 1, while this thread reports how much is done; a report that gives false
// stops the work. `begin` is called on each thread and gives what it does. False when it was stopped. Throws
// what a thread or a report threw; no thread is left behind however this ends.
bool DoTogether(std::size_t count, const std::function<Work()>& begin,
                const std::function<bool(int)>& report);

}  // namespace publishing
