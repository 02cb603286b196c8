// The grid's columns for every kind of name.
#include "products/ProductGridQuery.h"

#include "base/Helpers.h"
#include "publish/EscapedNames.h"
#include "store/Recordset.h"
#include "support/StoreFixture.h"

using namespace vorlina;

TEST_F(StoreFixture, TheGridHasFifteenColumnsWhateverTheNames) {
  const QString odd = EscapeName(u"L'\"ora\" [h].a/b*c:d#e&f-g%h$i\\j | `k` 🚪"_qs);
  const int catalog = AddCatalog(u"Catalog"_qs);
  AddProduct(catalog, u"O'Neil"_qs, 3);
  connection_.Execute(u"UPDATE Prodotti SET IDFiltro3=7"_qs);
  const std::tuple<QVariant, QVariant, QString, int> cases[] = {{NullValue(), NullValue(), u"_Valore2"_qs, 0},
                                                                {QString(), QString(), u"_Valore2"_qs, 0},
                                                                {odd, QString(odd + u"2"_qs), odd, 1},
                                                                {u"_x"_qs, u"select"_qs, u"_x"_qs, 1}};
  for (const auto& [value, filter, valueKey, filters] : cases) {
    connection_.Execute(u"UPDATE Cataloghi SET NomeValore2=?, NomeFiltro3=?"_qs, {value, filter});
    Recordset rsCatalogo;
    rsCatalogo.Open({.table = u"Cataloghi"_qs}, connection_);
    const ProductGridFields fields = ProductGridFields::Of(rsCatalogo);
    EXPECT_EQ(fields.values[1].key, valueKey);
    EXPECT_EQ(fields.NumeroFiltri, filters);
    Recordset rsGriglia;
    rsGriglia.Open(ProductGridQuery(fields, catalog, u" AND CodiceProdotto LIKE 'o''n%'"_qs), connection_);
    ASSERT_EQ(rsGriglia.Fields().Count(), 15);
    EXPECT_EQ(rsGriglia.Value(0), u"O'Neil"_qs);
    EXPECT_EQ(rsGriglia.Value(7), 7);
    EXPECT_EQ(rsGriglia.Value(14), 3);
    rsGriglia.SetValue(3, valueKey);
    rsGriglia.Update();
    EXPECT_EQ(One(u"Valore2"_qs, u"Prodotti"_qs), valueKey);
  }
}
