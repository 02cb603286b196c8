// Named values beside the fixed columns of the database, one per catalog or one per product. The program
// leaves its change marks there, and plug-ins keep their own values.
#pragma once

#include <QString>
#include <QVariant>

class QWidget;

namespace vorlina {

class Connection;

// Keeps a value under a name. A new name gets its level from this call for good: a product's with a product
// code, a catalog's with "". Where the name's entry has no level nothing is stored, and the answer is false:
// to be told by TellFaultyExtensions. All in one transaction. Throws Error.
[[nodiscard]] bool SetExtension(const QString& name, const QVariant& value, int IDCatalogo,
                                const QString& CodiceProdotto, Connection& connection);

// A catalog's value; "" where it was never kept. Throws Error.
QString CatalogExtension(const QString& name, int IDCatalogo, Connection& connection);

// Whether it was kept, be it as "" or NULL. Throws Error.
bool HasCatalogExtension(const QString& name, int IDCatalogo, Connection& connection);

// Keeps a catalog's value of the program's own, of which a name without a level is an Error as well. Throws
// Error.
void KeepCatalogExtension(const QString& name, const QString& value, int IDCatalogo, Connection& connection);

// Tells the user that SetExtension could not store something. To be called when the transaction that it was
// part of is over, since a box would hold it open.
void TellFaultyExtensions(QWidget* owner = nullptr);

// The two steps that serve SetExtension: one row per catalog, or product, and name, the value overwritten.
void SetCatalogExtension(const QString& name, const QVariant& value, int IDCatalogo,
                         const QString& CodiceProdotto, Connection& connection);
void SetProductExtension(const QString& name, const QVariant& value, int IDCatalogo,
                         const QString& CodiceProdotto, Connection& connection);

}  // namespace vorlina
