// The scenes of the tour.
#pragma once

#include "support/TourFilm.h"

namespace vorlina {

// Plays them in the windows over the application folder in use, in the language in use. Throws Error.
TourFilm FilmTour();

}  // namespace vorlina
