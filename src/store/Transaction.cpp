#include "store/Transaction.h"

#include <sqlite3.h>

#include <utility>

#include "store/Connection.h"
#include "store/Sqlite.h"

namespace vorlina {

Transaction::Transaction(Connection& connection, ChangeLabel label)
    : connection_(connection),
      label_(std::move(label)),
      joined_(connection.InTransaction()),
      commits_(connection.steps_.onCommit.size()),
      rollbacks_(connection.steps_.onRollback.size()) {
  if (joined_)
    connection_.Execute(u"SAVEPOINT part"_qs);
  else
    connection_.BeginTrans();
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
  if (!joined_ && label_.text != nullptr) qCDebug(StoreLog) << "stored:" << label_.text << label_.values;
}

}  // namespace vorlina
