#include "grid/LoadCombo.h"

#include <QComboBox>
#include <QTableView>

#include "store/Recordset.h"
#include "support/StoreFixture.h"

using namespace vorlina;

namespace {

class LoadComboTest : public StoreFixture {
 protected:
  void Load(int filter) {
    LoadCombo(rows, combo, u"SELECT VALORE,IDVALORE FROM FILTRI WHERE IDCATALOGO=1 AND IDNOMEFILTRO=?"_qs,
              u"VALORE"_qs, u"IDVALORE"_qs, connection, {1}, {filter});
  }

  Recordset rows;
  QComboBox combo;
};

}  // namespace

TEST_F(LoadComboTest, ShowsTheTextsAndKeepsTheIdentifiersBehindThem) {
  connection.Execute(
      u"INSERT INTO Filtri (IDValore, IDCatalogo, IDNomeFiltro, Valore) VALUES (41, 1, 2, 'Rosso'),"
      u" (42, 1, 2, '<b>Blu</b>'), (43, 1, 3, 'Altro')"_qs);
  // Loading twice, as after each new value, leaves one list.
  Load(3);
  Load(2);
  ASSERT_EQ(combo.count(), 2);
  EXPECT_EQ(combo.currentIndex(), -1);
  combo.setCurrentText(u"Rosso"_qs);
  EXPECT_EQ(combo.currentData().toInt(), 41);
  EXPECT_EQ(combo.itemText(1), u"<b>Blu</b>"_qs);
  auto* view = qobject_cast<QTableView*>(combo.view());
  ASSERT_NE(view, nullptr);
  EXPECT_TRUE(view->isColumnHidden(1));
  EXPECT_FALSE(view->isColumnHidden(0));
  EXPECT_FALSE(combo.model()->flags(combo.model()->index(0, 0)) & Qt::ItemIsEditable);
  EXPECT_EQ(combo.findData(42), 1);
}

TEST_F(LoadComboTest, AnErrorLeavesTheComboAsItWas) {
  connection.Execute(u"INSERT INTO Filtri (IDCatalogo, IDNomeFiltro, Valore) VALUES (1, 2, 'Rosso')"_qs);
  Load(2);
  LoadCombo(rows, combo, u"SELECT nothing FROM nowhere"_qs, u"VALORE"_qs, u"IDVALORE"_qs, connection, {1});
  EXPECT_EQ(combo.count(), 1);
}
