// The grid's columns for every kind of name.
#include "products/ProductGridQuery.h"

#include "base/Helpers.h"
#include "publish/EscapedNames.h"
#include "store/Recordset.h"
#include "support/Print.h"
#include "support/StoreFixture.h"

using namespace vorlina;

TEST_F(StoreFixture, RowsStandInTheOrderInWhichTheyCameWithoutASort) {
  const int catalog = AddCatalog(u"Catalog"_qs);
  for (const QString& code : {u"2"_qs, u"10"_qs, u"1"_qs}) AddProduct(catalog, code);
  const KeysetQuery query = ProductGridQuery({}, catalog, {});
  const QString tail = u" FROM Prodotti WHERE "_qs + query.where + u" ORDER BY "_qs + query.order;
  QStringList codes;
  Rows rows(connection_, u"SELECT CodiceProdotto"_qs + tail, query.values);
  while (rows.Next()) codes += rows.Value(0).toString();
  EXPECT_EQ(codes.join(u' '), u"2 10 1"_qs);
}

TEST_F(StoreFixture, TheGridHasFifteenColumnsWhateverTheNames) {
  const QString odd = EscapeName(u"L'\"ora\" [h].a/b*c:d#e&f-g%h$i\\j | `k` 🚪"_qs);
  const int catalog = AddCatalog(u"Catalog"_qs);
  AddProduct(catalog, u"O'Neil"_qs, 3);
  connection_.Execute(u"UPDATE Prodotti SET IDFiltro3=7"_qs);
  struct Case {
    QVariant value, filter;
    QString valueKey;
    int filters;
  };
  for (const Case& one :
       {Case{NullValue(), NullValue(), u"_Valore2"_qs, 0}, Case{QString(), QString(), u"_Valore2"_qs, 1},
        Case{odd, QString(odd + u"2"_qs), odd, 1}, Case{u"_x"_qs, u"select"_qs, u"_x"_qs, 1}}) {
    connection_.Execute(u"UPDATE Cataloghi SET NomeValore2=?, NomeFiltro3=?"_qs, {one.value, one.filter});
    Recordset rsCatalogo;
    rsCatalogo.Open({.table = u"Cataloghi"_qs}, connection_);
    const ProductGridFields fields = ProductGridFields::Of(rsCatalogo);
    EXPECT_EQ(fields.values[1].key, one.valueKey);
    EXPECT_EQ(fields.NumeroFiltri, one.filters);
    Recordset rsGriglia;
    rsGriglia.Open(ProductGridQuery(fields, catalog, u" AND CodiceProdotto LIKE 'o''n%'"_qs), connection_);
    ASSERT_EQ(rsGriglia.Fields().Count(), 15);
    EXPECT_EQ(rsGriglia.Value(0), u"O'Neil"_qs);
    EXPECT_EQ(rsGriglia.Value(7), 7);
    EXPECT_EQ(rsGriglia.Value(14), 3);
    rsGriglia.SetValue(3, one.valueKey);
    rsGriglia.Update();
    EXPECT_EQ(One(u"Valore2"_qs, u"Prodotti"_qs), one.valueKey);
  }
}
