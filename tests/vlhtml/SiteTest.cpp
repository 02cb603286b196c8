// Publishing a small catalog: what the site holds, what it never holds, and what happens to the folder when
// something goes wrong. The pages are compared with tests/vlhtml/reference, which VORLINA_UPDATE_REFERENCE=1
// writes anew.
#include <sys/wait.h>
#include <unistd.h>

#include <QThread>
#include <csignal>

#include "CatalogSnapshot.h"
#include "Contact.h"
#include "PriceTag.h"
#include "PublishedNames.h"
#include "SiteFixture.h"
#include "support/FullDisk.h"

using namespace vorlina;

using SiteTest = SiteFixture;

TEST(PublishedNames, AreLegalShortAndNeverTwoForOne) {
  vlhtml::PublishedNames names;
  QSet<QString> given;
  for (const QString& code :
       {u"A 1"_qs, u"A-1"_qs, u"a-1"_qs, u"À-1"_qs, u"../../etc/passwd"_qs, u"nul.txt"_qs, u"🙂"_qs,
        u"🙃"_qs, u""_qs, QString(255, u'è'), QString(255, u'x'), u"<b>'\""_qs, u"漢字"_qs, u"%2e%2e"_qs}) {
    const QString name = names.NameOf(u"p-"_qs, code);
    EXPECT_EQ(names.NameOf(u"p-"_qs, code), name);
    EXPECT_LE(name.size() + QStringLiteral("-100.html").size(), 60) << code;
    EXPECT_TRUE(QRegularExpression(u"^p-[a-z0-9-]*$"_qs).match(name).hasMatch()) << name;
    EXPECT_FALSE(given.contains(name)) << name;
    given.insert(name);
  }
  EXPECT_EQ(names.NameOf(u"p-"_qs, u"A 1"_qs), u"p-a-1"_qs) << "who came first keeps the plain name";
  EXPECT_EQ(names.NameOf(u"p-"_qs, u"../../etc/passwd"_qs), u"p-etc-passwd"_qs);
  EXPECT_EQ(names.NameOf(u"p-"_qs, u"ŁÓDŹ Øre Æbleskål"_qs), u"p-lodz-ore-aebleskal"_qs);
}

TEST(Contact, DialsOneNumberOrNone) {
  for (const auto& [typed, dialled] : {std::pair{"+39 0546 55-01", "+3905465501"},
                                       {"+49 (0)89 1234567", "+49891234567"},
                                       {"+39 (0)571 12345", "+39057112345"},
                                       {"0571/12345", "057112345"},
                                       {"0571 12345 / 0571 67890", "057112345"},
                                       {"06 123456, 06 654321", "06123456"},
                                       {"+39 0571 12345 +39 0571 67890", ""},
                                       {"12-34", ""}})
    EXPECT_EQ(vlhtml::Dialled(typed), dialled) << typed;
}

TEST(Contact, WritesToTheFirstAddressAndOpensABareHost) {
  for (const auto& [typed, mail] : {std::pair{" a.b@mail.example.com", "a.b@mail.example.com"},
                                    {"o'neil@example.com; other@example.com", "o'neil@example.com"},
                                    {"info@müller.example, other@example.com", "info@xn--mller-kva.example"}})
    EXPECT_EQ(vlhtml::SafeMail(typed), mail) << typed;
  for (const char* none :
       {"", "@", "a@", "@example.com", "a@b@example.com", "a@example", "à@example.com", "a b@example.com"})
    EXPECT_EQ(vlhtml::SafeMail(none), "") << none;
  for (const auto& [typed, url] : {std::pair{"shop.example.com/a", "https://shop.example.com/a"},
                                   {"www.müller.example", "https://www.xn--mller-kva.example"},
                                   {"http://example.com", "http://example.com"},
                                   {"javascript:alert(1).it", ""},
                                   {"a@example.com", ""},
                                   {"12.50", ""}})
    EXPECT_EQ(vlhtml::SafeUrl(typed), url) << typed;
}

TEST(PriceTag, SaysOfAPriceWhatIsCertain) {
  // The name, what was typed, whether commas have decimals behind them; text, label, figures, currency.
  for (const auto& [name, value, comma, text, label, amount, currency] :
       {std::tuple{"Prezzo \u20AC", "1.250,00", true, "1.250,00\u00A0\u20AC", "Prezzo", "1250.00", "EUR"},
        {"Price (\u00A3)", "1,250", false, "\u00A31,250", "Price", "1250", "GBP"},
        {"Prezzo", "12,5", true, "12,5", "Prezzo", "12.5", ""},
        {"Prezzo", "\u20AC 12.50", true, "\u20AC 12.50", "Prezzo", "12.50", "EUR"},
        {"Price $", "9.90", false, "$9.90", "Price", "9.90", ""},
        {"Preis CHF", "1'250.-", true, "1'250.-", "Preis CHF", "", "CHF"},
        {"Prezzo \u20AC", "1,250", true, "1,250", "Prezzo \u20AC", "", "EUR"},
        {"Prezzo \u20AC", "da 10 a 20", true, "da 10 a 20", "Prezzo \u20AC", "", "EUR"},
        {"Prezzo \u20AC", "", true, "", "Prezzo \u20AC", "", "EUR"},
        {"Price NEUROPEN", "5", false, "5", "Price NEUROPEN", "5", ""}}) {
    const vlhtml::PriceTag tag(name, comma);
    EXPECT_EQ(tag.Text(value), text);
    EXPECT_EQ(tag.Label(value, tag.Text(value)), label) << value;
    EXPECT_EQ(tag.Amount(value), amount) << value;
    EXPECT_EQ(tag.Currency(value), currency) << name << ' ' << value;
  }
}

TEST_F(SiteTest, ShowsNoPriceInListsWhereNoneIsWantedLarge) {
  profile_.price = VorlinaProfile::NoPrice;
  Publish();
  EXPECT_FALSE(Page(u"products.html"_qs).contains("12,50"));
  EXPECT_TRUE(Page(u"p-a-1.html"_qs).contains("12,50")) << "it is a value as others";
}

TEST_F(SiteTest, TellsOfWhatReadersMiss) {
  connection_.Execute(u"UPDATE Cataloghi SET Email='info at example'"_qs);
  profile_.highlights = {u"B-1"_qs};
  for (int i = 0; i < 26; ++i) {
    profile_.highlights += u"H-%1"_qs.arg(i);
    Add(profile_.highlights.last(), u"Altro"_qs, 10 + i, 1, 4, true);
    Picture(profile_.highlights.last(), 40, 30);
  }
  QStringList told;
  for (const VorlinaNote& note : Publish().notes)
    if (note.kind == VorlinaNote::Kind::Other) told += note.text;
  EXPECT_EQ(told, (QStringList{u"Prodotti in evidenza che nella prima pagina non si vedono: 3. Ne mostra al "
                               "più 24, con un'immagine."_qs,
                               u"\"info at example\" non è un indirizzo e-mail: in nessuna pagina i lettori "
                               "possono chiedere di un prodotto per e-mail."_qs}));
}

TEST_F(SiteTest, APreviewShowsThePicturesThatArePublished) {
  Add(u"N-1"_qs, u"Terzo"_qs, 5, 1, 4, true);
  for (const QString& code : {u"B-1"_qs, u"N-1"_qs}) Picture(code, 40, 30);
  profile_.highlights = {u"A-1"_qs, u"B-1"_qs};
  QStringList shown;
  for (const bool preview : {true, false}) {
    preview_ = preview;
    const QString folder = target_ + (preview ? u"-preview"_qs : QString());
    PublishTo(folder, 1, true, SiteProgress());
    static const QRegularExpression tiles(u"<section[^>]*tiles.*?</section>"_qs,
                                          QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression picture(u"src=\"images/[^\"]*"_qs);
    QString pictures;
    for (auto found = picture.globalMatch(
             tiles.match(QString::fromUtf8(ContentOf(folder + u"/index.html"_qs))).captured());
         found.hasNext();)
      pictures += found.next().captured();
    shown += pictures;
  }
  EXPECT_TRUE(shown[1].contains(u"p-n-1")) << shown[1];
  EXPECT_EQ(shown[0], shown[1]);
}

TEST_F(SiteTest, EachLetterOfManyValuesStandsOnce) {
  const QStringList values{u"Ox"_qs, u"Øre"_qs, u"(oro)"_qs, u"🎁 Écru"_qs, u"3D"_qs, u"“Œil”"_qs};
  for (int i = 0; i < 44; ++i) {
    connection_.Execute(u"INSERT INTO Filtri (IDCatalogo,IDNomeFiltro,Valore,Pubblica) VALUES (1,1,?,1)"_qs,
                        {values.value(i, u"Zeta %1"_qs.arg(i))});
    Add(u"L-%1"_qs.arg(i), u"Lettera"_qs, 10 + i, 6 + i, 4, true);
  }
  Publish();
  static const QRegularExpression heading(u"<h2><bdi>([^<]*)</bdi>"_qs);
  QStringList letters;
  for (auto found = heading.globalMatch(QString::fromUtf8(Page(u"f1.html"_qs))); found.hasNext();)
    letters += found.next().captured(1);
  letters.sort();
  EXPECT_EQ(letters, (QStringList{u"0–9"_qs, u"B"_qs, u"E"_qs, u"O"_qs, u"R"_qs, u"Z"_qs}));
}

TEST_F(SiteTest, IsWhatTheReferenceShows) {
  const VorlinaReport report = Publish();
  EXPECT_TRUE(report.complete);
  QMap<QString, QByteArray> files = Files(target_);
  for (const QString& name : {u"vorlina-manifest.txt"_qs, u"style.css"_qs, u"search.js"_qs,
                              u"images/p-a-1_400w.jpg"_qs, u"images/wide_800w.jpg"_qs})
    EXPECT_EQ(files.remove(name), 1) << name;
  // The mark at a page's end has a key of chance.
  for (auto file = files.begin(); file != files.end(); ++file) {
    if (file.key().endsWith(u".html")) file->truncate(file->lastIndexOf("<!-- vorlina-site "));
    for (const char* never : {"Nascosto", "Segreto", "Vuota", "<script>", "<i>", "=\"javascript:", "\\046"})
      EXPECT_FALSE(file->contains(never)) << file.key() << " holds " << never;
  }
  const QString reference = QStringLiteral(VORLINA_SOURCE_DIR "/tests/vlhtml/reference");
  if (qEnvironmentVariableIsSet("VORLINA_UPDATE_REFERENCE")) {
    QDir(reference).removeRecursively();
    WriteAll(reference, files);
  }
  const QMap<QString, QByteArray> expected = Files(reference);
  EXPECT_EQ(files.keys().join(u' '), expected.keys().join(u' '));
  for (auto file = expected.cbegin(); file != expected.cend(); ++file)
    EXPECT_EQ(QString::fromUtf8(files[file.key()]), QString::fromUtf8(file.value())) << file.key();
}

// Many products and values: every link leads somewhere, in a preview too, and no two pages have one title.
TEST_F(SiteTest, EveryLinkLeadsSomewhereAndTitlesDiffer) {
  for (int i = 0; i < 14; ++i) {
    connection_.Execute(u"INSERT INTO Filtri (IDCatalogo,IDNomeFiltro,Valore,Pubblica) VALUES (1,1,?,1)"_qs,
                        {i < 2 ? u"Doppio"_qs : u"Serie %1"_qs.arg(i)});
    for (int j = 0; j < 5; ++j)
      Add(u"N%1.%2"_qs.arg(i).arg(j), u"Uguale. Altro\n\nAncora"_qs, 10 + i, 6 + i, 4, true);
  }
  profile_.address = u"https://example.com/shop"_qs;
  for (const bool preview : {true, false}) {
    preview_ = preview;
    const QString folder = preview ? QString(target_ + u"-preview") : target_;
    PublishTo(folder, 1, true, SiteProgress());
    const QMap<QString, QByteArray> files = Files(folder);
    QSet<QString> titles;
    for (auto file = files.cbegin(); file != files.cend(); ++file) {
      if (!file.key().endsWith(u".html")) continue;
      static const QRegularExpression link(
          u"(?:href|src|action)=\"(?:(?:https://example.com)?/shop/)?([^\"]*)\""_qs),
          title(u"<title>(.*)</title>"_qs);
      const QString page = QString::fromUtf8(*file);
      for (auto found = link.globalMatch(page); found.hasNext();) {
        const QString to = found.next().captured(1);
        if (to.startsWith(u"mailto:") || to.startsWith(u"tel:") || to.isEmpty()) continue;
        const bool inPage = to.startsWith(u'#') && page.contains(u" id=\"%1\""_qs.arg(to.mid(1)));
        EXPECT_TRUE(inPage || files.contains(to)) << file.key() << " leads to " << to;
      }
      const QString itsTitle = title.match(page).captured(1);
      EXPECT_FALSE(itsTitle.isEmpty() || titles.contains(itsTitle)) << itsTitle;
      EXPECT_TRUE(itsTitle.contains(u"Bottega")) << itsTitle;
      titles.insert(itsTitle);
    }
    EXPECT_EQ(files.contains(u"p-b-1.html"_qs), !preview);
  }
  const QByteArray list = Page(u"products-2.html"_qs);
  EXPECT_TRUE(list.contains(">25–48 di 73<") && list.contains("aria-current=\"page\">2<"));
  EXPECT_TRUE(list.contains("rel=\"canonical\" href=\"https://example.com/shop/products-2.html\""));
  EXPECT_TRUE(Page(u"sitemap.xml"_qs).contains("<loc>https://example.com/shop/f1.html</loc>"));
  EXPECT_TRUE(Page(u"404.html"_qs).contains("src=\"/shop/search.js\""));
  const QByteArray shared = "og:image\" content=\"https://example.com/shop/images/p-a-1_400w.jpg\"";
  EXPECT_TRUE(Page(u"p-a-1.html"_qs).contains(shared) && Page(u"products.html"_qs).contains(shared));
}

// Each text of the catalog is one that would break a page where it was not expected.
TEST_F(SiteTest, HostileTextsStayTexts) {
  const QString hostile =
      u"\"'></title></script><img src=x onerror=alert(1)>\u202E שלום 🙂\r\n{{{x}}}"_qs +
      QString(10000, u'x');
  for (const char* column :
       {"Titolo", "Sottotitolo", "Spalla", "Azienda", "Indirizzo", "Citta", "Provincia", "Stato", "CAP",
        "Tel", "Fax", "Email", "URL", "Extras", "NomeValore1", "NomeFiltro1"})
    connection_.Execute(u"UPDATE Cataloghi SET %1=?"_qs.arg(QLatin1String(column)), {hostile});
  for (const char* column : {"Descrizione", "Valore1", "Valore2"})
    connection_.Execute(u"UPDATE Prodotti SET %1=?"_qs.arg(QLatin1String(column)), {hostile});
  connection_.Execute(u"UPDATE Filtri SET Valore=?"_qs, {hostile});
  connection_.Execute(u"UPDATE SchedeTecniche SET Caratteristica=?,Valore=?"_qs, {hostile, hostile});
  profile_.hours = profile_.mapLink = profile_.address = hostile;
  profile_.sisters = {{u"en"_qs, hostile}};
  profile_.accent = profile_.font = hostile;
  Publish();
  const QMap<QString, QByteArray> files = Files(target_);
  EXPECT_GT(files.size(), 8);
  for (auto file = files.cbegin(); file != files.cend(); ++file) {
    if (!file.key().endsWith(u".html")) continue;
    for (const char* never : {"<img src=x", "</title></", "\"'>", "javascript:"})
      EXPECT_FALSE(file->contains(never)) << file.key() << " holds " << never;
  }
}

TEST_F(SiteTest, ProductsWithoutANumberStandLastAndAsTheyCame) {
  connection_.Execute(u"UPDATE Prodotti SET OrdineTemp=NULL WHERE CodiceProdotto<>'D/..\\x'"_qs);
  PluginConnection connection(connection_);
  VorlinaJob job;
  job.IDCatalogo = 1;
  QStringList codes;
  for (const vlhtml::Product& product : vlhtml::ReadSnapshot(connection, job, false).products)
    codes += product.code;
  EXPECT_EQ(codes, (QStringList{u"D/..\\x"_qs, u"B-1"_qs, u"A-1"_qs}));
}

TEST_F(SiteTest, ASecondRunWritesOnlyWhatChanged) {
  EXPECT_GT(Written(), 5);
  EXPECT_EQ(Written(), 0);
  const QMap<QString, QByteArray> before = Files(target_);

  connection_.Execute(
      u"UPDATE Prodotti SET Valore2='9'||char(1,27,127,133,65535)||'9' WHERE CodiceProdotto='B-1'"_qs);
  EXPECT_EQ(Written(), 2) << "the product's own page, and what is searched";
  EXPECT_TRUE(Page(u"p-b-1.html"_qs).contains(">99<")) << "without control characters";
  // What somebody broke or lost is made again.
  QFile::remove(target_ + u"/p-b-1.html"_qs);
  Write(target_ + u"/style.css"_qs, "x");
  EXPECT_EQ(Written(), 2);
  EXPECT_EQ(Page(u"style.css"_qs), before[u"style.css"_qs]);
  // A product that goes takes its page and its picture with it.
  connection_.Execute(u"DELETE FROM Prodotti WHERE CodiceProdotto='A-1'"_qs);
  Publish();
  EXPECT_TRUE(Files(target_).keys().filter(u"p-a-1"_qs).isEmpty());
}

TEST_F(SiteTest, WhatASkinHoldsAndShowsIsNeverStale) {
  for (const QByteArray& content : {QByteArray("one"), QByteArray("two")}) {
    ChangeSkin(u"assets/fonts/a.woff2"_qs, content);
    Publish();
    EXPECT_EQ(Page(u"assets/fonts/a.woff2"_qs), content);
  }
  QFile::remove(skin_ + u"/assets/fonts/a.woff2"_qs);
  ChangeSkin(u"product.mustache"_qs, "{{#filters}}{{#values}}{{text}} {{count}};{{/values}}{{/filters}}");
  for (const QByteArray& count : {QByteArray("Rosso 1;"), QByteArray("Rosso 2;")}) {
    Publish();
    EXPECT_TRUE(Page(u"p-b-1.html"_qs).contains(count)) << count.constData();
    connection_.Execute(u"UPDATE Prodotti SET IDFiltro1=1 WHERE CodiceProdotto='A-1'"_qs);
  }
  EXPECT_FALSE(QFileInfo::exists(target_ + u"/assets/fonts"_qs));
  // A template's own pages, and no others.
  ChangeSkin(u"home.mustache"_qs, "<p>home</p>");
  EXPECT_EQ(Written(), 1);
}

TEST_F(SiteTest, FilesOfTheUserStayAndAreNotOverwritten) {
  const QStringList theirs{u"CNAME"_qs, u"images/own/photo.jpg"_qs, u"images/mine.jpg"_qs};
  for (const QString& name : theirs) Write(target_ + u'/' + name, "mine");
  Publish();
  connection_.Execute(u"DELETE FROM Prodotti"_qs);
  Publish();
  for (const QString& name : theirs) EXPECT_EQ(Page(name), "mine") << name;
}

TEST_F(SiteTest, StoppingOrFailingLeavesTheFolderAsItWas) {
  for (const bool published : {false, true}) {
    if (published) Publish();
    const QMap<QString, QByteArray> before = Files(target_);
    connection_.Execute(u"UPDATE Cataloghi SET Titolo=?"_qs, {published ? u"Altro"_qs : u"Uno"_qs});
    for (int stop : {0, 1})
      EXPECT_FALSE(Publish(SiteProgress([&](const QString&) { return stop-- > 0; })).complete);
    {
      const FullDisk full(600);
      EXPECT_FALSE(Failure().isEmpty());
    }
    EXPECT_TRUE(Files(target_) == before);
    EXPECT_TRUE(Beside().isEmpty());
  }
  EXPECT_EQ(Failure(), QString());
  EXPECT_TRUE(Page(u"index.html"_qs).contains("Altro"));
}

// The process is killed at moments spread over the whole of its work. Afterwards the folder has a site whose
// pages are all there, the former or the new one, or the next run makes it so.
TEST_F(SiteTest, AKillAtAnyMomentIsMendedByTheNextRun) {
  for (int i = 0; i < 400; ++i) Add(u"K%1"_qs.arg(i), u"Prodotto %1"_qs.arg(i), 10 + i, 1, 4, true);
  Publish();
  int hit = 0;
  for (int round = 0; round < 12; ++round) {
    connection_.Execute(u"UPDATE Cataloghi SET Sottotitolo=?"_qs, {u"round %1"_qs.arg(round)});
    connection_.Execute(u"DELETE FROM Prodotti WHERE CodiceProdotto=?"_qs, {u"K%1"_qs.arg(round)});
    connection_.Close();
    const pid_t child = fork();
    if (child == 0) {
      connection_.Open(ConnectionTextFor(Path()));
      for (;;) {
        Publish();
        connection_.Execute(u"UPDATE Cataloghi SET Spalla=datetime('now')||random()"_qs);
      }
    }
    QThread::usleep(15000 + static_cast<unsigned long>(round) * 7000);
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    hit += WIFSIGNALED(status) ? 1 : 0;
    connection_.Open(ConnectionTextFor(Path()));
    EXPECT_EQ(Failure(), QString()) << round;
    EXPECT_EQ(Written(), 0) << round;
    EXPECT_TRUE(Beside().isEmpty());
    EXPECT_FALSE(QFileInfo::exists(target_ + u"/p-k%1.html"_qs.arg(round)));
    for (int i = round + 1; i < 400; i += 37)
      EXPECT_TRUE(Page(u"p-k%1.html"_qs.arg(i)).contains("</html>\n<!-- vorlina-site ")) << i;
  }
  EXPECT_EQ(hit, 12);
}
