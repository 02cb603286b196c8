// The names of the library of all plug-ins, as this one uses them.
#pragma once

namespace publishing {}
namespace vlhtml {
using namespace publishing;
}
