// A connection through which a test sets rows up: a statement that writes is a transaction of its own.
#pragma once

#include <QRegularExpression>

#include "store/Connection.h"
#include "store/Transaction.h"

namespace vorlina {

inline void Write(Connection& connection, const QString& sql, const QVariantList& values = {}) {
  Transaction transaction(connection);
  connection.Execute(sql, values);
  transaction.Commit();
}

class WritingConnection : public Connection {
 public:
  void Execute(const QString& sql, const QVariantList& values = {}) {
    static const QRegularExpression writes(
        u"^\\s*(INSERT|UPDATE|DELETE|REPLACE|CREATE|DROP|ALTER|PRAGMA user_version=)\\b"_qs,
        QRegularExpression::CaseInsensitiveOption);
    if (InTransaction() || !sql.contains(writes)) return Connection::Execute(sql, values);
    Write(*this, sql, values);
  }
};

}  // namespace vorlina
