#include "store/Recordset.h"

#include "base/Helpers.h"
#include "store/Quoting.h"
#include "support/StoreFixture.h"

using namespace vorlina;

namespace {

class RecordsetTest : public StoreFixture {
 protected:
  void OpenProducts(Recordset& rows, CursorType cursor = CursorType::Keyset) {
    rows.Open(
        u"SELECT CodiceProdotto As [Codice], Descrizione, Pubblica, Prodotti.[OrdineTemp] as [Ordine],"
        u" Prodotti.IDCatalogo as _IDCatalogo FROM Prodotti WHERE Prodotti.IDCATALOGO=? ORDER BY Codice"_qs,
        connection, cursor, LockType::Optimistic, {1});
  }

  QStringList Codes(Recordset& rows) {
    QStringList codes;
    for (rows.MoveFirst(); !rows.IsEOF(); rows.MoveNext()) codes += rows.Value(u"CODICE"_qs).toString();
    return codes;
  }
};

}  // namespace

TEST_F(RecordsetTest, EveryCursorWalksTheRowsWithTypesAndNull) {
  AddProduct(u"B'1"_qs, NullValue());
  AddProduct(u"a%"_qs);
  AddProduct(u"😀"_qs, u""_qs);
  for (const CursorType cursor : {CursorType::Forward, CursorType::Keyset, CursorType::Static}) {
    Recordset rows;
    OpenProducts(rows, cursor);
    EXPECT_EQ(Codes(rows), QStringList({u"a%"_qs, u"B'1"_qs, u"😀"_qs}));
    EXPECT_TRUE(rows.IsEOF());
    EXPECT_FALSE(rows.IsBOF());
    rows.Requery();
    rows.MoveNext();
    EXPECT_TRUE(rows.Value(u"descrizione"_qs).isNull());
    EXPECT_TRUE(rows.Value(u"Descrizione"_qs).isValid());
    EXPECT_EQ(rows.Value(u"pubblica"_qs).typeId(), int(QMetaType::Bool));
    EXPECT_EQ(rows.BaseColumn(u"Ordine"_qs), u"OrdineTemp"_qs);
  }
}

TEST_F(RecordsetTest, AnEmptyRecordsetIsAtBothEnds) {
  Recordset rows;
  rows.Open(u"SELECT * FROM IMMAGINI WHERE 1=2"_qs, connection, CursorType::Keyset, LockType::Optimistic);
  EXPECT_TRUE(rows.IsBOF() && rows.IsEOF());
  EXPECT_EQ(FaultOf([&] { rows.Value(u"Immagine"_qs); }), StoreFault::NoCurrentRow);
  EXPECT_EQ(FaultOf([&] { rows.MoveNext(); }), StoreFault::NoCurrentRow);
  EXPECT_EQ(FaultOf([&] { rows.Delete(); }), StoreFault::NoCurrentRow);
}
