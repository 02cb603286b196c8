#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "make_help/HelpSource.h"
#include "support/HelpSearch.h"
#include "support/Print.h"

using namespace vorlina;

namespace {

void Write(const QString& path, const QString& text) {
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) >= text.size());
}

}  // namespace

// Every window has its page, every page is there in both languages, and no link is dead.
TEST(HelpSource, OfTheProgramHasNothingWrong) {
  const HelpSource source(QStringLiteral(VORLINA_SOURCE_DIR "/data/help"));
  const QStringList windows = WindowsBelow(QStringLiteral(VORLINA_SOURCE_DIR "/src"));
  EXPECT_GE(windows.size(), 15);
  EXPECT_EQ(source.Problems(windows).join(u'\n'), QString());
  std::map<int, QStringList> topics;
  for (const HelpEntry& entry : source.Entries()) topics[entry.topic] = entry.windows;
  for (const auto& [topic, window] :
       {std::pair{1000, u"frmCatalogs"_qs}, {1001, u"frmNewCatalog"_qs}, {1002, u"frmEditCatalog"_qs}})
    EXPECT_TRUE(topics[topic].contains(window)) << topic;
  for (int topic = 1003; topic <= 1021; ++topic) EXPECT_EQ(topics.count(topic), 1U) << topic;
}

// Two pages in two languages, with one fault at a time.
TEST(HelpSource, TellsWhatIsWrong) {
  const QString page =
      u"<!DOCTYPE html><html><head><title>T &amp; U</title><meta name=\"keywords\" content=\"a; "
      u"b\"></head><body>"
      "<h1 id=\"top\">H</h1><p><a href=\"two.html#top\">x</a> <a href=\"https://vorlina.example\">y</a>"
      "<img src=\"pictures/a.png\" alt=\"A\"></p></body></html>"_qs;
  const QString contents =
      u"{\"sections\":[{\"title\":{\"it\":\"S\",\"en\":\"S\"},\"pages\":["
      "{\"name\":\"one\",\"topic\":1,\"windows\":[\"frmOne\"]},{\"name\":\"two\"}]}]}"_qs;
  const auto problems = [&](const QString& file, const QString& from, const QString& to) {
    const QTemporaryDir folder;
    for (const QString& language : HelpLanguages) QDir(folder.path()).mkdir(language);
    QStringList names{u"it/one.html"_qs, u"it/two.html"_qs, u"en/one.html"_qs,
                      u"en/two.html"_qs, u"help.json"_qs,   u"help.css"_qs};
    if (to == u"gone") names.removeAll(file);
    if (to == u"stray") names += file;
    for (const QString& name : names) {
      QString text = name.endsWith(u"html") ? page
                     : name == u"help.json" ? contents
                                            : u"p { margin: 2px; }"_qs;
      if (name == file) text.replace(from, to);
      Write(folder.filePath(name), text);
    }
    return HelpSource(folder.path()).Problems({u"frmOne"_qs}).join(u'\n');
  };
  EXPECT_EQ(problems({}, {}, {}), QString());
  const std::tuple<QString, QString, QString, QString> faults[] = {
      {u"en/two.html"_qs, u"x"_qs, u"gone"_qs, u"en/two.html: there is no such page"_qs},
      {u"it/three.html"_qs, u"x"_qs, u"stray"_qs, u"it/three.html: help.json does not name it"_qs},
      {u"help.json"_qs, u"frmOne"_qs, u"frmTwo"_qs, u"no page has the window frmOne"_qs},
      {u"help.json"_qs, u"\"two\""_qs, u"\"one\",\"topic\":1"_qs, u"two pages have the topic 1"_qs},
      {u"help.json"_qs, u"]}"_qs, u"]"_qs, u"help.json: "_qs},
      {u"it/one.html"_qs, u"two.html"_qs, u"three.html"_qs,
       u"it/one.html: the link to three.html#top leads to no page"_qs},
      {u"it/one.html"_qs, u"two.html#top"_qs, u"two.html#end"_qs,
       u"the link to two.html#end leads to no anchor"_qs},
      {u"it/two.html"_qs, u"id=\"top\""_qs, u""_qs, u"the link to two.html#top"_qs},
      {u"en/one.html"_qs, u"top\">"_qs, u"top2\">"_qs,
       u"en/one.html: the anchors are others than in Italian"_qs},
      {u"en/one.html"_qs, u"<p>"_qs, u"<h2>more</h2><p>"_qs, u"there are 2 headings, and 1 in Italian"_qs},
      {u"it/two.html"_qs, u"</p>"_qs, u""_qs, u"</body> closes <p>"_qs},
      {u"it/two.html"_qs, u" alt=\"A\""_qs, u""_qs, u"no words in its place"_qs},
      {u"it/two.html"_qs, u"pictures/a.png"_qs, u"/tmp/a.jpg"_qs, u"a picture is \"pictures/NAME.png\""_qs},
      {u"it/two.html"_qs, u"<p>"_qs, u"<p>3 < 4 <script></script>"_qs,
       u"the viewer does not know <script>"_qs},
      {u"it/two.html"_qs, u"a; b"_qs, u" ; "_qs, u"there are no keywords"_qs},
      {u"it/two.html"_qs, u"T &amp; U"_qs, u""_qs, u"there is no title"_qs},
      {u"help.css"_qs, u"margin: 2px"_qs, u"font-size: 12px"_qs, u"a fixed size of letters"_qs},
  };
  for (const auto& [file, from, to, told] : faults)
    EXPECT_TRUE(problems(file, from, to).contains(told)) << told << " / " << problems(file, from, to);
}

TEST(HelpSearch, FindsWordsWhateverTheirCaseAndAccents) {
  HelpSearch search;
  const auto add = [&](const QString& name, const QString& title, const QString& keywords,
                       const QString& text) {
    search.Add(QUrl(name),
               u"<html><head><title>%1</title><meta name=\"keywords\" content=\"%2\"></head><body>%3</body>"
               "</html>"_qs.arg(title, keywords, text));
  };
  add(u"a"_qs, u"Proprietà"_qs, u"nome"_qs, u"<p>Il catalogo.</p>"_qs);
  add(u"b"_qs, u"Filtri"_qs, u"proprieta; valori"_qs, u"<p>I <b>valori</b> &lt;nuovi&gt;.</p>"_qs);
  add(u"c"_qs, u"Altro"_qs, u"x"_qs, u"<p>Una proprietà del CATALOGO</p>"_qs);
  add(u"d"_qs, u"Il file"_qs, u"y"_qs, u"<p>Non è un file; esiste già</p>"_qs);
  add(u"e"_qs, u"Z"_qs, u"z"_qs, u"<p>Il file \"…\" esiste già: un altro.</p>"_qs);
  const auto found = [&](const QString& words) {
    QString names;
    for (const HelpHit& hit : search.Find(words)) names += hit.url.toString();
    return names;
  };
  for (const auto& [words, names] : {std::pair{u"PROPRIETA"_qs, u"abc"_qs},
                                     {u"propr catalogo"_qs, u"ac"_qs},
                                     {u"<nuovi>"_qs, u"b"_qs},
                                     {u"nessuna"_qs, u""_qs},
                                     {u"catalogo nessuna"_qs, u""_qs},
                                     {u"Il file \"/home/anna/a b.jpg\" esiste già."_qs, u"ed"_qs},
                                     {u"  "_qs, u""_qs}})
    EXPECT_EQ(found(words), names) << words;
  EXPECT_EQ(search.Find(u"nuovi"_qs).front().extract, u"I valori <nuovi>. …"_qs);
  const QString message = u"il «x», non è un file"_qs;
  EXPECT_EQ(MarksFor(message, u"Il. Non è un File"_qs).front().Folded(),
            TextNeedle(u"non è un file"_qs).Folded());
}
