// The unit of work: rows that are written together, and the steps with files that belong to them.
#pragma once

#include <cstddef>
#include <functional>

#include "store/ChangeLabel.h"

namespace vorlina {

class Connection;

// A transaction for one procedure: rolled back unless committed. Inside an open one it joins, as a part that
// is taken back alone, and leaves the end to it. No box is shown as long as one is open.
class Transaction {
 public:
  using Step = std::function<void()>;

  // The first label of a transaction and its parts is that of the whole. Throws Error, LockedError where
  // another program writes for longer than LockPatience says.
  explicit Transaction(Connection& connection, ChangeLabel label = {});
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  // Runs once the outermost transaction is stored, in the order given: what must not happen before the rows
  // say so, as removing files. What it throws is logged: the rows are stored.
  void OnCommit(Step step);
  // Runs when the rows are not stored, the latest first, also where the commit fails: what has to be taken
  // back with them, as files that were written. Of a part that is taken back it runs at once. What it throws
  // is logged.
  void OnRollback(Step step);

  // Throws Error; nothing is stored then, but where the disk fails behind the end (which who has to know asks
  // the rows).
  void Commit();

 private:
  Connection& connection_;
  bool joined_;
  bool done_ = false;
  std::size_t commits_;  // steps that the transaction had when this part began
  std::size_t rollbacks_;
};

}  // namespace vorlina
