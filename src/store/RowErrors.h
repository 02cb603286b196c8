// Failed writes of a row that a window tells apart, to say them in its own words.
#pragma once

#include <QStringList>

#include "base/Error.h"

namespace vorlina {

// Another row has these values already.
class DuplicateError : public Error {
 public:
  DuplicateError(const QString& description, QStringList columns)
      : Error(description), columns_(std::move(columns)) {}

  // As the database names them: table, dot, column.
  const QStringList& Columns() const noexcept { return columns_; }

 private:
  QStringList columns_;
};

// Somebody else has changed or deleted the row meanwhile.
class ConflictError : public Error {
 public:
  using Error::Error;
};

}  // namespace vorlina
