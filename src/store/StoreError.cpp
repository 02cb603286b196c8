#include "store/StoreError.h"

#include <sqlite3.h>

#include "base/Language.h"

namespace vorlina {

Q_LOGGING_CATEGORY(StoreLog, "vorlina.store", QtInfoMsg)

namespace {

// "UNIQUE constraint failed: Prodotti.IDCatalogo, Prodotti.CodiceProdotto" gives the two columns' names.
QString ColumnsOf(const QString& message) {
  QStringList names;
  const QString list = message.section(u": "_qs, 1);
  for (const QString& column : list.split(u", "_qs, Qt::SkipEmptyParts)) names += column.section(u'.', -1);
  return names.join(u", "_qs);
}

[[noreturn]] void ThrowDuplicate(const QString& message) {
  if (message.contains(u"Prodotti.CodiceProdotto"_qs, Qt::CaseInsensitive))
    throw StoreError(StoreFault::Duplicate,
                     EitherLanguage(u"In questo catalogo esiste già un prodotto con lo stesso codice"_qs,
                                    u"A product with the same code already exists in this catalog"_qs));
  throw StoreError(StoreFault::Duplicate, EitherLanguage(u"Esiste già una riga con lo stesso valore di %1"_qs,
                                                         u"A row with the same value of %1 already exists"_qs)
                                              .arg(ColumnsOf(message)));
}

[[noreturn]] void ThrowConstraint(int code, const QString& message) {
  switch (code) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
      ThrowDuplicate(message);
    case SQLITE_CONSTRAINT_NOTNULL:
      throw StoreError(StoreFault::Constraint,
                       EitherLanguage(u"Manca il valore di %1"_qs, u"The value of %1 is missing"_qs)
                           .arg(ColumnsOf(message)));
    case SQLITE_CONSTRAINT_FOREIGNKEY:
      throw StoreError(StoreFault::Constraint,
                       EitherLanguage(u"Il catalogo o il prodotto a cui la riga appartiene non esiste più"_qs,
                                      u"The catalog or product that the row belongs to no longer exists"_qs));
    default:
      throw StoreError(StoreFault::Constraint, EitherLanguage(u"Il database rifiuta la modifica: %1"_qs,
                                                              u"The database refuses the change: %1"_qs)
                                                   .arg(message));
  }
}

struct Translation {
  int code;  // a primary result code
  StoreFault fault;
  const char16_t* italian;
  const char16_t* english;
};

const Translation Translations[] = {
    {SQLITE_BUSY, StoreFault::Locked,
     u"Il database è occupato da un altro programma. Attendere che finisca e riprovare.",
     u"The database is in use by another program. Wait until it has finished and try again."},
    {SQLITE_LOCKED, StoreFault::Locked, u"Il database è occupato da un'altra operazione. Riprovare.",
     u"The database is in use by another operation. Try again."},
    {SQLITE_READONLY, StoreFault::ReadOnly,
     u"Il database è di sola lettura. Controllare i permessi del file e della sua cartella.",
     u"The database is read-only. Check the permissions of the file and of its folder."},
    {SQLITE_FULL, StoreFault::DiskFull,
     u"Il disco è pieno: la modifica non è stata salvata. Liberare spazio e riprovare.",
     u"The disk is full: the change was not saved. Free some space and try again."},
    {SQLITE_IOERR, StoreFault::DiskFull, u"Il disco ha segnalato un errore: la modifica non è stata salvata.",
     u"The disk reported an error: the change was not saved."},
    {SQLITE_CORRUPT, StoreFault::Corrupt, u"Il database è danneggiato. Ripristinare una copia di riserva.",
     u"The database is damaged. Restore a backup."},
    {SQLITE_NOTADB, StoreFault::Corrupt,
     u"Il file non è un database di cataloghi, o è danneggiato. Ripristinare una copia di riserva.",
     u"The file is not a catalog database, or it is damaged. Restore a backup."},
    {SQLITE_CANTOPEN, StoreFault::Other,
     u"Impossibile aprire il database. Controllare i permessi del file e della sua cartella.",
     u"The database cannot be opened. Check the permissions of the file and of its folder."},
};

}  // namespace

void ThrowStoreError(int code, const QString& message) {
  qCDebug(StoreLog) << "SQLite" << code << message;
  if ((code & 0xff) == SQLITE_CONSTRAINT) ThrowConstraint(code, message);
  for (const Translation& known : Translations)
    if (known.code == (code & 0xff))
      throw StoreError(known.fault,
                       EitherLanguage(QString::fromUtf16(known.italian), QString::fromUtf16(known.english)));
  throw StoreError(StoreFault::Other,
                   EitherLanguage(u"Errore del database: %1"_qs, u"Database error: %1"_qs).arg(message));
}

void ThrowStoreError(sqlite3* handle) {
  ThrowStoreError(sqlite3_extended_errcode(handle), QString::fromUtf8(sqlite3_errmsg(handle)));
}

}  // namespace vorlina
