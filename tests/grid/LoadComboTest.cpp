#include "grid/LoadCombo.h"

#include <QAbstractItemView>
#include <QTableView>

#include "support/Print.h"
#include "support/StoreFixture.h"

using namespace vorlina;

class LoadComboTest : public StoreFixture {};

TEST_F(LoadComboTest, ShowsTheDisplayColumnAndKeepsTheValue) {
  const int catalog = AddCatalog(u"c"_qs);
  for (const QString& value : {u"Rosso"_qs, u"Blu \"d'oro\""_qs})
    connection_.Execute(u"INSERT INTO Filtri (IDCatalogo,IDNomeFiltro,Valore) VALUES (?,1,?)"_qs,
                        {catalog, value});
  const QString sql = u"SELECT VALORE,IDVALORE FROM FILTRI WHERE IDCATALOGO=? ORDER BY VALORE"_qs;
  QComboBox combo;
  LoadCombo(combo, sql, u"VALORE"_qs, u"IDVALORE"_qs, connection_, {1}, {catalog});
  ASSERT_EQ(combo.count(), 2);
  EXPECT_EQ(combo.itemText(0), u"Blu \"d'oro\""_qs);
  EXPECT_EQ(combo.itemData(0), 2);
  EXPECT_TRUE(qobject_cast<QTableView*>(combo.view())->isColumnHidden(1));
  EXPECT_FALSE(qobject_cast<QTableView*>(combo.view())->isColumnHidden(0));

  LoadCombo(combo, u"SELECT nothing"_qs, u"VALORE"_qs, u"IDVALORE"_qs, connection_, {1});
  EXPECT_EQ(combo.count(), 2) << "left as it is";
}
