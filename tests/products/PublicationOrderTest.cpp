// Moving products in the publication order, and numbering them.
#include "products/PublicationOrder.h"

#include "base/Error.h"
#include "support/StoreFixture.h"

using namespace vorlina;

namespace {

class PublicationOrderTest : public StoreFixture {
 protected:
  PublicationOrderTest() : catalog_(AddCatalog(u"Catalog"_qs)), other_(AddCatalog(u"Other"_qs)) {
    Fill(other_, u"a1 b2 c3"_qs);
  }
  // Products of one letter and a number each, in the order in which they come; "-" is none.
  void Fill(int catalog, const QString& products) {
    connection_.Execute(u"DELETE FROM Prodotti WHERE IDCatalogo=?"_qs, {catalog});
    for (const QString& product : products.split(u' '))
      AddProduct(catalog, product.first(1), product[1] == u'-' ? QVariant() : QVariant(product.mid(1)));
  }
  qint64 KeyOf(QChar code) {
    return One(u"IDProdotto"_qs, u"Prodotti"_qs, u"IDCatalogo=? AND CodiceProdotto=?"_qs, {catalog_, code})
        .toLongLong();
  }
  bool Move(const QString& codes, QChar target) {
    std::vector<qint64> keys;
    for (const QChar code : codes) keys.push_back(KeyOf(code));
    return MoveProducts(catalog_, keys, KeyOf(target), connection_);
  }

  int catalog_;
  int other_;
};

}  // namespace

TEST_F(PublicationOrderTest, ProductsGoToThePlaceOfAnother) {
  using Text = const char16_t*;
  const std::tuple<const char*, Text, Text, char16_t, Text> cases[] = {
      {"up", u"a1 b2 c3 d4 e5 f6", u"de", u'b', u"a1 d2 e3 b4 c5 f6"},
      {"down", u"a1 b2 c3 d4 e5 f6", u"bc", u'e', u"a1 d2 e3 b4 c5 f6"},
      {"on itself", u"a1 b2 c3", u"bc", u'c', u"a1 b2 c3"},
      {"onto one that is gone", u"a1 b2 c3", u"bc", u'x', u"a1 b2 c3"},
      {"one that is gone along", u"a1 b2 c3", u"xc", u'a', u"c1 a2 b3"},
      {"in another order", u"c1 a2 b3 d4", u"dc", u'b', u"a1 b2 c3 d4"},
      {"apart, up", u"a1 b2 c3 d4 e5 f6", u"ec", u'b', u"a1 c2 e3 b4 d5 f6"},
      {"apart, on one between", u"a1 b2 c3 d4 e5 f6", u"be", u'c', u"a1 c2 b3 e4 d5 f6"},
      {"gaps, down", u"a1 b5 c9 d12 e20", u"b", u'd', u"a1 c5 d9 b12 e20"},
      {"equal, a gap behind", u"a3 b3 c3 d7", u"c", u'b', u"a3 c4 b5 d7"},
      {"equal, none behind", u"a3 b3 c3 d4 e5 f8", u"c", u'a', u"c3 a4 b4 d5 e6 f8"},
      {"equal ones between", u"a1 b2 c2 d3 e4", u"d", u'a', u"d1 a2 b3 c3 e4"},
      {"without a number", u"a1 b- c3 d-", u"b", u'a', u"b1 a3 c4 d5"},
      {"onto one without", u"a1 b- c3 d-", u"a", u'b', u"c1 b3 a4 d5"},
      {"numbers with fractions", u"a1 b1.5 c3", u"c", u'a', u"c1 a2 b3"},
  };
  for (const auto& [name, before, moving, target, after] : cases) {
    Fill(catalog_, QString::fromUtf16(before));
    EXPECT_EQ(Move(QString::fromUtf16(moving), target), QStringView(before) != QStringView(after)) << name;
    EXPECT_EQ(Orders(catalog_), QString::fromUtf16(after)) << name;
    EXPECT_EQ(Orders(other_), u"a1 b2 c3") << name;
  }
}

TEST_F(PublicationOrderTest, OnlyProductsWithoutANumberGetOne) {
  for (const auto& [before, after] :
       {std::pair{u"c- a- b-"_qs, u"c1 a2 b3"_qs}, std::pair{u"c7 a- b3"_qs, u"b3 c7 a8"_qs},
        std::pair{u"c7 a7 b9"_qs, u"c7 a7 b9"_qs}, std::pair{u"c2.5 a- b-"_qs, u"c2.5 a3 b4"_qs}}) {
    Fill(catalog_, before);
    EXPECT_EQ(NumberUnnumbered(catalog_, connection_), before.contains(u'-')) << before;
    EXPECT_EQ(Orders(catalog_), after) << before;
  }
  EXPECT_EQ(NuovoOrdine(catalog_, connection_), u"4") << "the rows are counted, not the numbers";
}

TEST_F(PublicationOrderTest, WhatIsGoneLeavesNoGap) {
  Fill(catalog_, u"a1 b2 c3"_qs);
  const std::vector<qint64> bookmarks = {KeyOf(u'c'), KeyOf(u'b'), KeyOf(u'a')};
  connection_.Execute(u"DELETE FROM Prodotti WHERE CodiceProdotto='b'"_qs);
  RenumberProducts(catalog_, bookmarks, connection_);
  EXPECT_EQ(Orders(catalog_), u"c1 a2");
  EXPECT_EQ(Orders(other_), u"a1 c3");
}
