// The style sheet that a profile's colour and font make, over that of the skin.
#pragma once

#include <VorlinaJob.h>

#include <QByteArray>

namespace vlhtml {

// Empty where the profile has neither colour nor font. The colour is made darker, and for the dark page
// lighter, until texts in it, and on it, can be read: a contrast of 4.5 at least.
QByteArray ThemeOf(const VorlinaProfile& profile);

}  // namespace vlhtml
