// Pictures of the boxes that the windows show, each as a user comes to it.
#pragma once

#include <QString>

namespace vorlina {

class Photographer;
class frmCatalogs;

// The folder is where a site may be published to.
void TakeBoxes(const Photographer& photographer, frmCatalogs& catalogs, const QString& folder);

}  // namespace vorlina
