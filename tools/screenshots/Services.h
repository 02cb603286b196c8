// Pictures of the windows around the program.
#pragma once

namespace vorlina {

class Photographer;
class frmCatalogs;

void TakeServices(const Photographer& photographer, frmCatalogs& catalogs);

}  // namespace vorlina
