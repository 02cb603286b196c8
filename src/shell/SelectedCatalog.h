// The commands for the catalog that is selected in the main window. One without a name is left alone, as is a
// list in which none is selected.
#pragma once

class QWidget;

namespace vorlina {

class CatalogList;
class Connection;

// Both ask first, tell what fails, and read the list anew. What imports into the catalog or publishes it goes
// first.
void DeleteSelected(CatalogList& catalogs, Connection& connection, QWidget& owner);
void CloneSelected(CatalogList& catalogs, Connection& connection, QWidget& owner);

}  // namespace vorlina
