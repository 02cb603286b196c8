// Pictures of the boxes that the windows show, each as a user comes to it.
#pragma once

namespace vorlina {

class Photographer;
class frmCatalogs;

void TakeBoxes(const Photographer& photographer, frmCatalogs& catalogs);

}  // namespace vorlina
