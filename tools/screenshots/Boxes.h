// Pictures of the boxes that the windows show, each as a user comes to it.
#pragma once

#include <QString>

namespace vorlina {

class Photographer;
class frmCatalogs;

// The place is a folder for what it needs: pictures to import, and a site.
void TakeBoxes(const Photographer& photographer, frmCatalogs& catalogs, const QString& place);

}  // namespace vorlina
