// The languages that the dialogs of the plug-in speak.
#pragma once

#include "Publishing.h"

namespace vlhtml {

// Whether Italian or English is spoken: to the user, and by the site to its readers.
struct Languages {
  bool italian;
  bool siteItalian;
};

}  // namespace vlhtml
