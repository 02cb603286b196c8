// What a transaction brings along besides its rows.
#include "store/Transaction.h"

#include "base/Error.h"
#include "support/StoreFixture.h"

using namespace vorlina;

namespace {

class TransactionTest : public StoreFixture {
 protected:
  void Enlist(Transaction& transaction, const QString& name) {
    transaction.OnCommit([=, this] { done_ += u'+' + name; });
    transaction.OnRollback([=, this] { done_ += u'-' + name; });
  }

  QStringList done_;
};

}  // namespace

TEST_F(TransactionTest, StepsRunOnceTheRowsAreStoredOrTakenBack) {
  {
    Transaction whole(connection_);
    AddCatalog(u"kept"_qs);
    Enlist(whole, u"a"_qs);
    {
      const Transaction lost(connection_);
      Transaction part(connection_);
      AddCatalog(u"lost"_qs);
      Enlist(part, u"b"_qs);
      part.Commit();
      EXPECT_EQ(done_, QStringList());
    }
    EXPECT_EQ(done_, QStringList(u"-b"_qs)) << "of a part that is taken back, at once";
    Transaction part(connection_);
    Enlist(part, u"c"_qs);
    part.Commit();
    whole.OnCommit([] { throw Error(u"logged"_qs); });
    Enlist(whole, u"d"_qs);
    whole.Commit();
  }
  EXPECT_EQ(done_.join(u' '), u"-b +a +c +d"_qs);
  EXPECT_EQ(Count(u"Cataloghi"_qs), 1) << "the whole without its part";
  done_.clear();
  {
    Transaction lost(connection_);
    Enlist(lost, u"a"_qs);
    lost.OnRollback([this] { EXPECT_FALSE(connection_.InTransaction()); });
    Enlist(lost, u"b"_qs);
  }
  EXPECT_EQ(done_.join(u' '), u"-b -a"_qs);
}

TEST_F(TransactionTest, NothingIsWrittenOutsideOfOne) {
  for (const QString& sql :
       {u"INSERT INTO Cataloghi (NomeCatalogo) VALUES ('x')"_qs, u"CREATE TABLE More (a)"_qs})
    EXPECT_THROW(static_cast<Connection&>(connection_).Execute(sql), Error) << sql;
  Rows(connection_, u"INSERT INTO Cataloghi (NomeCatalogo) VALUES ('x') RETURNING 1"_qs).Next();
  EXPECT_EQ(Count(u"Cataloghi"_qs), 0);
}
