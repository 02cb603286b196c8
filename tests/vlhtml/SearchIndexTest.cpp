#include "SearchIndex.h"

#include "SiteFixture.h"

using namespace vorlina;

namespace {

class SearchIndexTest : public testing::Test {
 protected:
  void Add(const QString& code, std::string name, std::vector<std::string> paragraphs, int filterValue) {
    vlhtml::Product product;
    product.code = code;
    product.name = std::move(name);
    product.paragraphs = std::move(paragraphs);
    product.filters[1] = filterValue;
    catalog_.products.push_back(std::move(product));
  }
  QString Script(const QString& picture = QString()) {
    std::vector<vlhtml::SearchHit> hits;
    for (const vlhtml::Product& product : catalog_.products)
      hits.push_back({&product, u"p-x%1.html"_qs.arg(hits.size()), picture, {}, product.values[0]});
    const vlhtml::Words words(u"en"_qs, QStringLiteral(VORLINA_SOURCE_DIR "/plugins/vlhtml/words"), {},
                              false);
    return QString::fromStdString(SearchIndex(catalog_, hits, "Size", words));
  }

  vlhtml::CatalogSnapshot catalog_;
};

}  // namespace

TEST_F(SearchIndexTest, NoTextEndsTheScript) {
  Add(u"A\"1\\"_qs, "</script><!-- \u2028 \u2029", {"a\nb\r\tc\x01"}, 0);
  const QString script = Script();
  EXPECT_TRUE(script.contains(u"\"A\\\"1\\\\\"")) << script;
  EXPECT_TRUE(script.contains(u"\"\\u003c/script\\u003e\\u003c!-- \\u2028 \\u2029\"")) << script;
  EXPECT_TRUE(script.contains(u"\"a b  c\\u0001\"")) << script;
  EXPECT_FALSE(script.contains(QChar(0x2028)));
}

TEST_F(SearchIndexTest, ValuesOfOneTextAreOneChoiceAndUnusedOnesNone) {
  catalog_.filterNames[1] = "Colour";
  catalog_.filterValues = {{7, 2, u"Red"_qs}, {8, 2, u"Green"_qs}, {9, 2, u"Red"_qs}, {10, 1, u"Blue"_qs}};
  for (const int value : {9, 7, 0, 10}) Add(u"A"_qs, "A", {}, value);
  const QString script = Script();
  EXPECT_TRUE(script.contains(u"{number:2,name:\"Colour\",values:[\"Red\"],\nof:[1,1,0,0],\n}")) << script;
  EXPECT_TRUE(script.contains(u"name:[0,0,0,0]")) << "a name that is the code is left out";
}

TEST_F(SearchIndexTest, AValueInThePlaceOfThePriceIsOnceInTheFile) {
  for (const char* code : {"A", "B"}) Add(QString::fromLatin1(code), code, {}, 0);
  EXPECT_TRUE(Script().contains(u"label:\"Size\",\nprice:[0,0],\n"));
  catalog_.products[0].values = {"10 cm", "red", ""};
  EXPECT_TRUE(Script().contains(u"text:[\"red\",0],\nlabel:\"Size\",\nvalue:[\"10 cm\",0],\npage:"))
      << Script();
}

TEST_F(SearchIndexTest, FilesAreToldByWhatTheirNamesDoNotSay) {
  Add(u"x0"_qs, "A", {}, 0);
  Add(u"Y"_qs, "A", {}, 0);
  EXPECT_TRUE(Script(u"images/p-x0_400w.jpg"_qs)
                  .contains(u"page:[0,\"p-x1\"],\npicture:[1,2],\n"
                            "ends:[\"_400w.jpg\",\"images/p-x0_400w.jpg\"]"));
  EXPECT_TRUE(Script().contains(u"picture:[0,0],\nends:[]"));
}

TEST_F(SearchIndexTest, LongTextsAreCutAtAWordWithinTheSizeOfAll) {
  for (int i = 0; i < 3000; ++i)
    Add(u"A"_qs, "A", {std::string(80, 'x') + " òòòò", std::string(2000, 'y')}, 0);
  const QString script = Script();
  EXPECT_TRUE(script.contains(u"x òòòò\"")) << "the beginning stays";
  EXPECT_FALSE(script.contains(u"yy"));
  EXPECT_LT(script.toUtf8().size(), 600'000);
}
