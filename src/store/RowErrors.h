// Failures of the database that a window tells apart, to say them in its own words or to try again.
#pragma once

#include <QStringList>

#include "base/Error.h"
#include "base/Texts.h"

namespace vorlina {

// Another program holds the database.
class LockedError : public Error {
 public:
  using Error::Error;
};

// A text in a column of numbers.
class NoNumberError : public Error {
 public:
  NoNumberError(const QString& value, const QString& column) : Error(TextFor(value, column)), value_(value) {}

  // With the column by the name that the user knows.
  Error In(const QString& column) const { return Error(TextFor(value_, column)); }

 private:
  static QString TextFor(const QString& value, const QString& column) {
    return Texts::tr("\"%1\" non è un numero adatto a %2").arg(value, column);
  }

  QString value_;
};

// Another row has these values already.
class DuplicateError : public Error {
 public:
  explicit DuplicateError(QStringList columns) : Error(TextFor(columns)), columns_(std::move(columns)) {}

  // As the database names them: table, dot, column.
  const QStringList& Columns() const noexcept { return columns_; }

 private:
  static QString TextFor(const QStringList& columns) {
    return Texts::tr("Esiste già una riga con lo stesso valore (%1). Scegliere un altro valore.")
        .arg(columns.join(u", "_qs));
  }

  QStringList columns_;
};

// Somebody else has changed or deleted the row meanwhile.
class ConflictError : public Error {
 public:
  using Error::Error;

  static ConflictError Deleted() {
    return ConflictError(
        Texts::tr("La riga è stata eliminata nel frattempo da un'altra finestra o da un altro programma."));
  }
  static ConflictError Changed() {
    return ConflictError(
        Texts::tr("La riga è stata modificata nel frattempo da un'altra finestra o da un altro programma."));
  }
};

}  // namespace vorlina
