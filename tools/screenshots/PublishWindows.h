// Pictures of publishing: the window that asks how, the highlights, the question before another catalog's
// site is replaced, and what is told in the end.
#pragma once

namespace vorlina {

class Photographer;
class frmCatalogs;

void TakePublishing(const Photographer& photographer, frmCatalogs& catalogs);

}  // namespace vorlina
