// Skins from unknown hands: templates that would write raw text, and archives that are no skins. What no
// archive may hold is told by the tests of the catalogs' archives.
#include "Skin.h"

#include "SiteSkin.h"
#include "SkinFolders.h"
#include "base/SafeFile.h"
#include "store/ZipArchive.h"
#include "vlhtml/SiteFixture.h"

using namespace vorlina;

namespace {

using Entries = QMap<QString, QByteArray>;
const publishing::SkinKind& Kind = vlhtml::SiteSkin();
using Case = std::array<const char*, 3>;

void WriteArchive(const QString& path, const Entries& entries) {
  WriteFileSafely(path, [&](QIODevice& device) {
    ZipWriter writer(device);
    for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry)
      writer.Add(entry.key(), entry.value(), ZipWriter::Packing::Deflate);
    writer.Close();
    return true;
  });
}

class SkinTest : public testing::Test {
 protected:
  SkinTest() : host_{u"English"_qs, folder_.path(), folder_.path() + u"/delivered"_qs} {}

  QString Installing(const Entries& entries, const QString& name = u"My skin.zip"_qs) {
    WriteArchive(folder_.filePath(name), entries);
    return Installing(folder_.filePath(name));
  }
  QString Installing(const QString& path) {
    return FailureOf([&] { publishing::InstallSkinArchive(path, Kind, host_); });
  }
  QStringList SkinFolders() const {
    return QDir(folder_.filePath(QStringLiteral("PubWiz/VLHTML.HTML/Skins")))
        .entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot);
  }

  const Entries standard_ = Files(StandardSkin);
  QTemporaryDir folder_;
  VorlinaHost host_;
};

}  // namespace

TEST_F(SkinTest, TemplatesThatAreBrokenOrWriteRawTextAreRefused) {
  // A file, its text (none: it is missing), and what is told.
  for (const auto& [name, text, told] :
       {Case{"product.mustache", "\n\n{{{heading}}}", "file product.mustache, line 3"},
        Case{"home.mustache", "{{&siteTitle}}", "line 1"}, Case{"card.mustache", "{{\u00A0&code}}", "line 1"},
        Case{"card.mustache", "\r\n{{\r\n&code}}", "file card.mustache, line 2"},
        Case{"home.mustache", "{{ {x} }}", "line 1"}, Case{"card.mustache", "{{=<% %>=}}", "line 1"},
        Case{"card.mustache", "{{\t=<% %>=}}", "line 1"},
        Case{"index.mustache", "{{> header}}\n{{#cards}}", "file index.mustache, line 2: \"{{#cards}}\""},
        Case{"card.mustache", "{{#a}}\n{{/b}}", "file card.mustache, line 2: \"{{/b}}\""},
        Case{"home.mustache", "\n{{x}", "line 2"},
        Case{"filter.mustache", "{{> ../../etc/passwd}}", "line 1"},
        Case{"footer.mustache", nullptr, "footer.mustache: it is missing"},
        Case{"assets/my logo.png", "x", "assets/my logo.png"}, Case{"images/x.png", "x", "images/x.png"}}) {
    const QTemporaryDir skin;
    Entries files = standard_;
    files.remove(QString::fromLatin1(name));
    if (text != nullptr) files[QString::fromLatin1(name)] = text;
    WriteAll(skin.path(), files);
    const QString problem = FailureOf([&] { publishing::Skin(skin.path(), Kind, false).StaticFiles(); });
    EXPECT_TRUE(problem.contains(QLatin1String(told))) << told << ": " << problem;
  }
}

TEST_F(SkinTest, TemplatesWithoutMeasureAreRefused) {
  QByteArray names, parts;
  for (int i = 0; i < 1001; ++i) names += "{{n" + QByteArray::number(i) + "}}";
  for (int i = 0; i < 10'001; ++i) parts += "{{> card}}";
  for (const auto& [text, card, told] :
       {std::tuple{QByteArray("{{#a}}").repeated(101), "", "within each other"},
        {names, "", "too many names"},
        {parts, "", "too many parts"},
        {parts.left(7000), "{{!          }}", "index.mustache, line 1"}}) {
    const QTemporaryDir skin;
    Entries files = standard_;
    files[u"index.mustache"_qs] = text;
    files[u"card.mustache"_qs] = card + QByteArray(text.size() == 7000 ? 8000 : 0, ' ');
    WriteAll(skin.path(), files);
    const QString problem = FailureOf([&] { publishing::Skin(skin.path(), Kind, false); });
    EXPECT_TRUE(problem.contains(QLatin1String(told))) << told << ": " << problem;
  }
}

TEST_F(SkinTest, PagesWithoutMeasureAreRefused) {
  for (const auto& [text, told] :
       {std::pair{QByteArray("{{#l}}\n{{#l}}x{{/l}}{{/l}}"), "line 2: a list"},
        {"{{#a}}{{#b}}" + QByteArray(100, 'x') + "{{/b}}{{/a}}", "line 1: the page would"}}) {
    const QTemporaryDir folder;
    Entries files = standard_;
    files[u"home.mustache"_qs] = text;
    WriteAll(folder.path(), files);
    const publishing::Skin skin(folder.path(), Kind, false);
    publishing::Fields fields(skin.Names());
    for (const char* name : {"l", "a", "b"}) fields.List(name, 500, [](publishing::Fields&, auto) {});
    const auto home = std::size_t(Kind.pages.indexOf(u"home"_qs));
    std::string page;
    const QString problem = FailureOf([&] { skin.Write(home, fields.Tree(), fields.Tree(), page); });
    EXPECT_TRUE(problem.contains(u"file home.mustache, "_qs + QLatin1String(told))) << problem;
  }
}

TEST_F(SkinTest, BracesThatMeetWhereAPartEndsAreText) {
  const QTemporaryDir folder;
  Entries files = standard_;
  files[u"home.mustache"_qs] = "{{> card}}{&l {{x}}\n";
  files[u"card.mustache"_qs] = "a\n\n{";
  WriteAll(folder.path(), files);
  const publishing::Skin skin(folder.path(), Kind, false);
  const publishing::Fields fields(skin.Names());
  std::string page;
  skin.Write(std::size_t(Kind.pages.indexOf(u"home"_qs)), fields.Tree(), fields.Tree(), page);
  EXPECT_EQ(page, "a\n\n{{&l \n");
}

TEST_F(SkinTest, AnInstallationThatWasKilledIsTakenBack) {
  ASSERT_EQ(Installing(standard_), QString());
  const QString skins = QFileInfo(publishing::CurrentSkin(Kind, host_)).path();
  ASSERT_TRUE(QDir(skins).mkpath(u".new-abc/former"_qs));
  ASSERT_TRUE(QDir(skins).rename(u"My_skin"_qs, u".new-abc/former/My_skin"_qs));
  EXPECT_TRUE(publishing::CurrentSkin(Kind, host_).endsWith(u"/Skins/My_skin"));
  EXPECT_EQ(SkinFolders(), QStringList{u"My_skin"_qs});
}

TEST_F(SkinTest, AnInstalledSkinIsUsedAndOneOfTheSameNameReplaced) {
  EXPECT_TRUE(publishing::CurrentSkin(Kind, host_).startsWith(host_.deliveredFolder));
  EXPECT_EQ(Installing(standard_), QString());
  EXPECT_TRUE(publishing::CurrentSkin(Kind, host_).endsWith(u"/Skins/My_skin"));
  // As a Mac packs a folder.
  Entries changed;
  for (const QString& name : standard_.keys()) changed[u"folder/"_qs + name] = standard_[name];
  for (const QString& name :
       {u"folder/assets/fonts/a.woff2"_qs, u"folder/robots.txt"_qs, u"folder/.DS_Store"_qs,
        u"folder/assets/._a.woff2"_qs, u"__MACOSX/folder/._style.css"_qs})
    changed[name] = "x";
  EXPECT_EQ(Installing(changed), QString());
  QStringList files;
  for (const publishing::Skin::File& file :
       publishing::Skin(publishing::CurrentSkin(Kind, host_), Kind, false).StaticFiles())
    files += file.name;
  EXPECT_EQ(files.join(u' '), u"assets/fonts/a.woff2 robots.txt search.js style.css"_qs);
  EXPECT_EQ(SkinFolders(), QStringList{u"My_skin"_qs}) << "nothing is left beside it";
}

TEST_F(SkinTest, TheStandardSkinCanAlwaysBeChosenAgain) {
  EXPECT_EQ(Installing(standard_, u"Standard.zip"_qs), QString());
  EXPECT_EQ(publishing::Skins(Kind, host_).join(u' '), u"Standard Standard-2"_qs);
  WriteAll(host_.deliveredFolder + u"/PubWiz/VLHTML.HTML/Skins/Standard"_qs, standard_);
  publishing::UseSkin(u"Standard"_qs, Kind, host_);
  EXPECT_TRUE(publishing::CurrentSkin(Kind, host_).startsWith(host_.deliveredFolder));
}

TEST_F(SkinTest, ArchivesThatAreNoSkinChangeNothing) {
  EXPECT_EQ(Installing(standard_), QString());
  const QString path = folder_.filePath(u"My skin.zip"_qs);
  const QByteArray whole = ContentOf(path);
  const auto with = [&](const QString& name, const QByteArray& content) {
    Entries entries = standard_;
    entries[name] = content;
    WriteArchive(path, entries);
    return ContentOf(path);
  };
  Entries many = standard_;
  for (int i = 0; i < 501; ++i) many[u"assets/%1"_qs.arg(i)] = "x";
  WriteArchive(path, many);
  for (const auto& [archive, told] :
       {std::pair{ContentOf(path), u"too many files"_qs},
        {with(u".htaccess"_qs, "x"), u"\".htaccess\" is not allowed"_qs},
        {with(u"product.mustache"_qs, "{{{x}}}"), u"product.mustache, line 1"_qs},
        {whole.left(whole.size() / 2), u"no zip archive"_qs},
        {QByteArray(whole).replace(whole.size() / 2, 9, "damaged!!"), u"it is damaged"_qs}}) {
    Write(path, archive);
    const QString problem = Installing(path);
    EXPECT_TRUE(problem.contains(told)) << told << ": " << problem;
    EXPECT_EQ(SkinFolders(), QStringList{u"My_skin"_qs}) << told;
  }
  EXPECT_EQ(ContentOf(publishing::CurrentSkin(Kind, host_) + u"/style.css"_qs), standard_[u"style.css"_qs]);
}
