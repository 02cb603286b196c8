// Named values of catalogs and products outside the fixed columns, where plug-ins find them, and the marks
// that the program leaves on a product whose picture or data changed.
#pragma once

#include <QString>
#include <QVariant>

namespace vorlina {

class Connection;

// Stores the value under the name, for the product, or for the catalog where CodiceProdotto is empty. The
// first call for a name settles its level for good. A faulty row of Extensions is told by a message (or
// thrown where no dialogs are installed), and nothing is stored. Name and value are one transaction, or part
// of the open one. Throws StoreError.
void SetExtension(const QString& name, const QVariant& value, int IDCatalogo, const QString& CodiceProdotto,
                  Connection& connection);

// The two levels; the name exists.
void SetCatalogExtension(const QString& name, const QVariant& value, int IDCatalogo,
                         const QString& CodiceProdotto, Connection& connection);
void SetProductExtension(const QString& name, const QVariant& value, int IDCatalogo,
                         const QString& CodiceProdotto, Connection& connection);

// Leaves "ImmagineModificata" and "SchedaModificata" on a product row that was changed or added, both or
// neither.
void MarkProductChanged(int IDCatalogo, const QString& CodiceProdotto, Connection& connection);

}  // namespace vorlina
