// Skins from unknown hands: templates that would write raw text, and archives that would write elsewhere.
#include "Skin.h"

#include <archive.h>
#include <archive_entry.h>

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include "SkinFolders.h"
#include "support/Print.h"

namespace {

const QString Standard = QStringLiteral(VORLINA_SOURCE_DIR "/plugins/vlhtml/skin");

QByteArray ContentOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void Write(const QString& path, const QByteArray& content) {
  QDir().mkpath(QFileInfo(path).path());
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(content);
}

struct Entry {
  QString name;
  QByteArray content;
  unsigned type = AE_IFREG;
};

std::vector<Entry> StandardEntries(const QString& folder = {}) {
  std::vector<Entry> entries;
  for (const QString& name : QDir(Standard).entryList(QDir::Files))
    entries.push_back({folder + name, ContentOf(Standard + u'/' + name)});
  return entries;
}

void WriteArchive(const QString& path, const std::vector<Entry>& entries) {
  struct archive* archive = archive_write_new();
  archive_write_set_format_zip(archive);
  archive_write_open_filename(archive, QFile::encodeName(path).constData());
  for (const Entry& e : entries) {
    struct archive_entry* entry = archive_entry_new();
    archive_entry_set_pathname_utf8(entry, e.name.toUtf8().constData());
    archive_entry_set_filetype(entry, e.type);
    archive_entry_set_perm(entry, 0644);
    if (e.type == AE_IFLNK) archive_entry_set_symlink(entry, e.content.constData());
    archive_entry_set_size(entry, e.type == AE_IFREG ? e.content.size() : 0);
    archive_write_header(archive, entry);
    if (e.type == AE_IFREG) archive_write_data(archive, e.content.constData(), std::size_t(e.content.size()));
    archive_entry_free(entry);
  }
  archive_write_free(archive);
}

class SkinTest : public testing::Test {
 protected:
  SkinTest()
      : host_{QStringLiteral("English"), folder_.path(), folder_.path() + QStringLiteral("/delivered")} {}

  QString Installing(const std::vector<Entry>& entries) {
    const QString path = folder_.filePath(QStringLiteral("My skin.zip"));
    WriteArchive(path, entries);
    return Installing(path);
  }
  QString Installing(const QString& path) {
    try {
      vlhtml::InstallSkinArchive(path, host_);
    } catch (const std::exception& error) {
      return QString::fromUtf8(error.what());
    }
    return {};
  }
  QStringList SkinFolders() const {
    return QDir(folder_.filePath(QStringLiteral("PubWiz/VLHTML.HTML/Skins")))
        .entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot);
  }

  QTemporaryDir folder_;
  VorlinaHost host_;
};

}  // namespace

TEST_F(SkinTest, TemplatesThatAreBrokenOrWriteRawTextAreRefused) {
  struct Case {
    const char* file;
    const char* text;  // null: the file is missing
    const char* told;
  };
  for (const Case& c :
       {Case{"product.mustache", "\n\n{{{heading}}}", "file product.mustache, line 3"},
        Case{"home.mustache", "{{&siteTitle}}", "line 1"},
        Case{"home.mustache", "{{  &siteTitle}}", "line 1"}, Case{"home.mustache", "a\n{{\t&x}}", "line 2"},
        Case{"card.mustache", "{{\n&code}}", "line 1"},
        Case{"card.mustache", "\r\n{{\r\n&code}}", "file card.mustache, line 2"},
        Case{"home.mustache", "{{ {x} }}", "line 1"}, Case{"card.mustache", "{{=<% %>=}}", "line 1"},
        Case{"card.mustache", "{{ = <% %> = }}", "line 1"}, Case{"card.mustache", "{{\t=<% %>=}}", "line 1"},
        Case{"card.mustache", "{", "file index.mustache"},
        Case{"index.mustache", "{{> header}}\n{{#cards}}", "file index.mustache, line 2: \"{{#cards}}\""},
        Case{"card.mustache", "{{#a}}\n{{/b}}", "file card.mustache, line 2: \"{{/b}}\""},
        Case{"home.mustache", "\n{{x}", "line 2"},
        Case{"filter.mustache", "{{> ../../etc/passwd}}", "line 1"},
        Case{"footer.mustache", nullptr, "footer.mustache: it is missing"},
        Case{"style.css", nullptr, "style.css: it is missing"},
        Case{"assets/my logo.png", "x", "assets/my logo.png"}, Case{"images/x.png", "x", "images/x.png"}}) {
    const QTemporaryDir skin;
    for (const Entry& entry : StandardEntries()) Write(skin.filePath(entry.name), entry.content);
    const QString file = skin.filePath(QString::fromLatin1(c.file));
    QFile::remove(file);
    if (c.text != nullptr) Write(file, c.text);
    if (QLatin1String(c.told) == QLatin1String("file index.mustache"))
      Write(skin.filePath(QStringLiteral("index.mustache")), "{{> card}}{&code}}");
    try {
      vlhtml::Skin(skin.path(), false).StaticFiles();
      ADD_FAILURE() << c.file << ": " << (c.text == nullptr ? "" : c.text);
    } catch (const std::runtime_error& error) {
      EXPECT_NE(std::string(error.what()).find(c.told), std::string::npos) << error.what();
    }
  }
}

TEST_F(SkinTest, AnInstalledSkinIsUsedAndOneOfTheSameNameReplaced) {
  EXPECT_TRUE(vlhtml::CurrentSkin(host_).startsWith(host_.deliveredFolder));
  EXPECT_EQ(Installing(StandardEntries()), QString());
  EXPECT_TRUE(vlhtml::CurrentSkin(host_).endsWith(u"/Skins/My_skin"));
  // As a Mac packs a folder.
  std::vector<Entry> changed = StandardEntries(QStringLiteral("folder/"));
  for (const char* name : {"folder/assets/fonts/a.woff2", "folder/robots.txt", "folder/.DS_Store",
                           "folder/assets/._a.woff2", "__MACOSX/folder/._style.css"})
    changed.push_back({QLatin1String(name), "x"});
  EXPECT_EQ(Installing(changed), QString());
  QStringList files;
  for (const vlhtml::Skin::File& file : vlhtml::Skin(vlhtml::CurrentSkin(host_), false).StaticFiles())
    files += file.name;
  EXPECT_EQ(files.join(u' '), QStringLiteral("assets/fonts/a.woff2 robots.txt style.css"));
  EXPECT_EQ(SkinFolders().join(u' '), QStringLiteral("My_skin")) << "nothing is left beside it";
}

TEST_F(SkinTest, TheStandardSkinCanAlwaysBeChosenAgain) {
  const QString path = folder_.filePath(QStringLiteral("Standard.zip"));
  WriteArchive(path, StandardEntries());
  EXPECT_EQ(Installing(path), QString());
  EXPECT_EQ(vlhtml::Skins(host_).join(u' '), QStringLiteral("Standard Standard-2"));
  EXPECT_THROW(vlhtml::UseSkin(QStringLiteral("Standard"), host_), std::runtime_error) << "it is not there";
  EXPECT_TRUE(vlhtml::CurrentSkin(host_).endsWith(u"/Standard-2"));
  for (const Entry& entry : StandardEntries())
    Write(host_.deliveredFolder + QStringLiteral("/PubWiz/VLHTML.HTML/Skins/Standard/") + entry.name,
          entry.content);
  vlhtml::UseSkin(QStringLiteral("Standard"), host_);
  EXPECT_TRUE(vlhtml::CurrentSkin(host_).startsWith(host_.deliveredFolder));
}

TEST_F(SkinTest, ArchivesThatAreNoSkinChangeNothing) {
  EXPECT_EQ(Installing(StandardEntries()), QString());
  struct Case {
    const char* what;
    Entry entry;
  };
  for (const Case& c :
       {Case{"leads out", {QStringLiteral("../evil.mustache"), "x"}},
        Case{"absolute", {QStringLiteral("/tmp/evil"), "x"}}, Case{"drive", {QStringLiteral("C:/evil"), "x"}},
        Case{"stream", {QStringLiteral("a:b"), "x"}},
        Case{"link", {QStringLiteral("link.css"), "/etc/passwd", AE_IFLNK}},
        Case{"device", {QStringLiteral("CON.txt"), "x"}},
        Case{"numbered device", {QStringLiteral("assets/com1"), "x"}},
        Case{"case twin", {QStringLiteral("STYLE.css"), "x"}},
        Case{"hidden", {QStringLiteral(".htaccess"), "x"}},
        Case{"blank at the end", {QStringLiteral("a /b"), "x"}},
        Case{"bomb", {QStringLiteral("assets/big"), QByteArray(20 << 20, '\0')}},
        Case{"raw text", {QStringLiteral("product.mustache"), "{{{x}}}"}}}) {
    std::vector<Entry> entries;
    for (const Entry& entry : StandardEntries())
      if (entry.name != c.entry.name) entries.push_back(entry);
    entries.push_back(c.entry);
    EXPECT_FALSE(Installing(entries).isEmpty()) << c.what;
    EXPECT_EQ(SkinFolders().join(u' '), QStringLiteral("My_skin")) << c.what;
    EXPECT_FALSE(QFileInfo::exists(folder_.filePath(QStringLiteral("PubWiz/VLHTML.HTML/evil.mustache"))))
        << c.what;
  }
  std::vector<Entry> many = StandardEntries();
  for (int i = 0; i < 501; ++i) many.push_back({QStringLiteral("assets/%1").arg(i), "x"});
  EXPECT_FALSE(Installing(many).isEmpty());
  const QString path = folder_.filePath(QStringLiteral("My skin.zip"));
  WriteArchive(path, StandardEntries());
  const QByteArray whole = ContentOf(path);
  for (const QByteArray& content : {whole.left(whole.size() / 2), QByteArray("no archive"), QByteArray()}) {
    Write(path, content);
    EXPECT_FALSE(Installing(path).isEmpty()) << content.size();
  }
  EXPECT_EQ(ContentOf(vlhtml::CurrentSkin(host_) + QStringLiteral("/style.css")),
            ContentOf(Standard + QStringLiteral("/style.css")));
}
