#include "Words.h"

#include <QJsonDocument>
#include <QJsonObject>

#include "vlhtml/SiteFixture.h"

using namespace vorlina;
using publishing::Words;

namespace {

const QString Delivered = QStringLiteral(VORLINA_SOURCE_DIR "/plugins/vlhtml/words");

QJsonObject WordsOf(const QString& language) {
  return QJsonDocument::fromJson(ContentOf(Delivered + u'/' + language + u".json"_qs)).object();
}

QStringList Placeholders(const QString& text) {
  QStringList found;
  static const QRegularExpression placeholder(u"\\{[a-z]+\\}"_qs);
  for (auto match = placeholder.globalMatch(text); match.hasNext();) found += match.next().captured();
  found.sort();
  return found;
}

}  // namespace

TEST(WordsTest, EveryLanguageSaysTheSameThings) {
  const QJsonObject english = WordsOf(u"en"_qs);
  ASSERT_FALSE(english.isEmpty());
  for (const QString& language : {u"it"_qs, u"de"_qs, u"fr"_qs, u"es"_qs}) {
    const QJsonObject other = WordsOf(language);
    EXPECT_EQ(other.keys(), english.keys()) << language;
    for (const QString& key : other.keys()) {
      const QString text = other[key].toString();
      EXPECT_NE(text, QString()) << language << ' ' << key;
      EXPECT_EQ(Placeholders(text), Placeholders(english[key].toString())) << language << ' ' << key;
    }
  }
}

TEST(WordsTest, TheStandardSkinAsksForNoOtherWords) {
  const QJsonObject words = WordsOf(u"en"_qs);
  static const QRegularExpression tag(u"\\{\\{[#^]?L\\.(\\w+)"_qs);
  const auto files = Files(StandardSkin);
  for (auto file = files.cbegin(); file != files.cend(); ++file)
    for (auto match = tag.globalMatch(QString::fromUtf8(file.value())); match.hasNext();) {
      const QString word = match.next().captured(1);
      EXPECT_TRUE(words.contains(word)) << file.key() << ' ' << word;
    }
}

TEST(WordsTest, NumbersAreWrittenAndCountedAsTheLanguageDoes) {
  const auto counted = [](const QString& language, int n) {
    return Words(language, Delivered, {}, false).Counted("product", n);
  };
  EXPECT_EQ(counted(u"en"_qs, 0), "0 products");
  EXPECT_EQ(counted(u"fr"_qs, 0), "0 produit");
  EXPECT_EQ(counted(u"de"_qs, 1), "1 Produkt");
  EXPECT_EQ(counted(u"it"_qs, 3000), "3.000 prodotti");
  const Words english(u"en"_qs, Delivered, {}, false);
  EXPECT_EQ(english.Text("range", {{"from", "{to}"}, {"to", "48"}, {"total", english.Number(3000)}}),
            "{to}–48 of 3,000");
}

TEST(WordsTest, ASkinExtendsAndReplacesWords) {
  const QTemporaryDir skin;
  WriteAll(skin.path(), {{u"words/it.json"_qs, R"({"home": "Inizio"})"},
                         {u"words/en.json"_qs, R"({"home": "Start", "slogan": "Made by hand"})"}});
  const Words words(u"it"_qs, Delivered, skin.path(), false);
  EXPECT_EQ(words.Text("home"), "Inizio");
  EXPECT_EQ(words.Text("slogan"), "Made by hand");
  EXPECT_EQ(words.Text("products"), "Prodotti");
}

TEST(WordsTest, AFileThatCannotBeUsedIsNamed) {
  const QTemporaryDir skin;
  for (const auto& [text, told] :
       {std::pair{"{\n\"home\": \"Inizio\"\n\"code\": \"C\"}", "file words/it.json, line 3"},
        {"[]", "file words/it.json, line 1"},
        {R"({"home": 3})", "\"home\""},
        {R"({"L.home": "x"})", "\"L.home\""}}) {
    WriteAll(skin.path(), {{u"words/it.json"_qs, text}});
    const QString problem = FailureOf([&] { Words(u"it"_qs, Delivered, skin.path(), false); });
    EXPECT_TRUE(problem.contains(QLatin1String(told))) << told << ": " << problem;
  }
  const QString problem = FailureOf([&] { Words(u"nl"_qs, Delivered, skin.path(), false); });
  EXPECT_TRUE(problem.contains(u"nl.json")) << problem;
}
