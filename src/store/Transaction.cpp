#include "store/Transaction.h"

#include <sqlite3.h>

#include <utility>

#include "base/Texts.h"
#include "store/Connection.h"
#include "store/Sqlite.h"

namespace vorlina {

QString ChangeLabel::Shown() const {
  QString shown = Texts::tr(text);
  for (const QString& value : values) shown = shown.arg(value);
  return shown;
}

Transaction::Transaction(Connection& connection, ChangeLabel label)
    : connection_(connection),
      joined_(connection.InTransaction()),
      commits_(connection.steps_.onCommit.size()),
      rollbacks_(connection.steps_.onRollback.size()) {
  if (joined_)
    connection_.Execute(u"SAVEPOINT part"_qs);
  else
    connection_.BeginTrans();
  ChangeLabel& kept = connection_.steps_.label;
  if (kept.IsEmpty()) kept = std::move(label);
}

Transaction::~Transaction() {
  if (done_) return;
  if (!joined_) {
    connection_.RollbackIfOpen();
    return;
  }
  if (connection_.InTransaction()) {
    sqlite3_exec(connection_.Database().getHandle(), "ROLLBACK TO part; RELEASE part", nullptr, nullptr,
                 nullptr);
    ++connection_.takenBack_;
    connection_.RestoreCounters();
  }
  connection_.TakeBack(commits_, rollbacks_);
}

void Transaction::OnCommit(Step step) { connection_.steps_.onCommit.push_back(std::move(step)); }

void Transaction::OnRollback(Step step) { connection_.steps_.onRollback.push_back(std::move(step)); }

void Transaction::Commit() {
  if (joined_)
    connection_.Execute(u"RELEASE part"_qs);
  else
    connection_.CommitTrans();
  done_ = true;
}

}  // namespace vorlina
