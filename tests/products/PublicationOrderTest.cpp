// The arithmetic of moving a block of products in the publication order.
#include "products/PublicationOrder.h"

#include "base/Error.h"
#include "support/Print.h"
#include "support/StoreFixture.h"

using namespace vorlina;

namespace {

class PublicationOrderTest : public StoreFixture {
 protected:
  PublicationOrderTest() : catalog_(AddCatalog(u"Catalog"_qs)), other_(AddCatalog(u"Other"_qs)) {
    for (int i = 1; i <= 9; ++i) {
      AddProduct(catalog_, QString(QChar(u'a' + i - 1)), i);
      AddProduct(other_, QString(QChar(u'a' + i - 1)), i);
    }
  }
  // The codes in their order, and the numbers where they are not 1, 2, 3 and so on.
  QString Order(int catalog) {
    QString codes;
    QStringList numbers;
    Rows rows(
        connection_,
        u"SELECT CodiceProdotto,OrdineTemp FROM Prodotti WHERE IDCatalogo=? ORDER BY OrdineTemp,CodiceProdotto"_qs,
        {catalog});
    bool plain = true;
    for (int i = 1; rows.Next(); ++i) {
      codes += rows.Value(0).toString();
      numbers += rows.Value(1).isNull() ? u"-"_qs : rows.Value(1).toString();
      plain = plain && rows.Value(1) == i;
    }
    return plain ? codes : codes + u' ' + numbers.join(u',');
  }

  int catalog_;
  int other_;
};

}  // namespace

TEST_F(PublicationOrderTest, ABlockMovesUpAndDown) {
  struct Case {
    int first, last, target;
    BlockMove outcome;
    const char16_t* order;
  };
  const Case cases[] = {
      {4, 6, 2, BlockMove::Moved, u"adefbcghi"},          {9, 9, 1, BlockMove::Moved, u"iabcdefgh"},
      {7, 9, 1, BlockMove::Moved, u"ghiabcdef"},          {2, 4, 8, BlockMove::Moved, u"aefghbcdi"},
      {1, 1, 9, BlockMove::Moved, u"bcdefghia"},          {3, 4, 5, BlockMove::Moved, u"abecdfghi"},
      {4, 6, 4, BlockMove::InPlace, u"abcdefghi"},        {4, 6, 5, BlockMove::NothingToMove, u"abcdefghi"},
      {4, 6, 6, BlockMove::NothingToMove, u"abcdefghi"},  {9, 9, 20, BlockMove::NothingToMove, u"abcdefghi"},
      {20, 21, 3, BlockMove::NothingToMove, u"abcdefghi"}};
  for (const Case& one : cases) {
    connection_.BeginTrans();
    EXPECT_EQ(MoveBlock(catalog_, one.first, one.last, one.target, connection_), one.outcome)
        << one.first << '-' << one.last << " to " << one.target;
    EXPECT_EQ(Order(catalog_), QString::fromUtf16(one.order))
        << one.first << '-' << one.last << " to " << one.target;
    EXPECT_EQ(Order(other_), u"abcdefghi") << "another catalog";
    connection_.RollbackTrans();
  }
}

TEST_F(PublicationOrderTest, TiesMoveTogetherAndRowsWithoutANumberStay) {
  connection_.Execute(u"UPDATE Prodotti SET OrdineTemp=2 WHERE CodiceProdotto='c'"_qs);
  connection_.Execute(u"UPDATE Prodotti SET OrdineTemp=NULL WHERE CodiceProdotto='i'"_qs);
  EXPECT_EQ(MoveBlock(catalog_, 4, 4, 2, connection_), BlockMove::Moved);
  EXPECT_EQ(Order(catalog_), u"iadbcefgh -,1,2,3,3,5,6,7,8");
  EXPECT_EQ(NuovoOrdine(catalog_, connection_), u"10") << "the rows are counted, not the numbers";
}

TEST_F(PublicationOrderTest, AFailureLeavesTheOrderAsItWas) {
  connection_.Execute(
      u"CREATE TRIGGER Refuse BEFORE UPDATE ON Prodotti WHEN old.CodiceProdotto='b' "
      "BEGIN SELECT RAISE(ABORT, 'refused'); END"_qs);
  EXPECT_THROW(MoveBlock(catalog_, 7, 9, 1, connection_), Error);
  EXPECT_EQ(Order(catalog_), u"abcdefghi");
  EXPECT_FALSE(connection_.InTransaction());
}

TEST_F(PublicationOrderTest, WhatIsGoneLeavesNoGap) {
  std::vector<qint64> bookmarks;
  {
    Rows rows(connection_, u"SELECT rowid FROM Prodotti ORDER BY CodiceProdotto DESC"_qs);
    while (rows.Next()) bookmarks.push_back(rows.Value(0).toLongLong());
  }
  connection_.Execute(u"DELETE FROM Prodotti WHERE CodiceProdotto='h'"_qs);
  RenumberProducts(catalog_, bookmarks, connection_);
  EXPECT_EQ(Order(catalog_), u"igfedcba");
  EXPECT_EQ(Order(other_), u"abcdefgi 1,2,3,4,5,6,7,9");
}
