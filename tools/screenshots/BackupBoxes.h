// Pictures of saving and restoring: the catalogs' menu, what can be restored, and what is asked.
#pragma once

namespace vorlina {

class Photographer;
class frmCatalogs;

void TakeBackupBoxes(const Photographer& photographer, frmCatalogs& catalogs);

}  // namespace vorlina
