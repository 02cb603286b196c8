// Archives that want more than they may: each is refused, with nothing outside of the folder that it is
// unpacked to.
#include <archive.h>
#include <archive_entry.h>

#include "store/ZipArchive.h"
#include "support/CatalogFixture.h"

using namespace vorlina;

namespace {

struct RawEntry {
  QByteArray name;
  mode_t type = AE_IFREG;
};

// An archive by the bare library, which takes any name.
void WriteRaw(const QString& path, const std::vector<RawEntry>& entries) {
  archive* zip = archive_write_new();
  archive_write_set_format_zip(zip);
  ASSERT_EQ(archive_write_open_filename(zip, QFile::encodeName(path).constData()), ARCHIVE_OK);
  for (const RawEntry& raw : entries) {
    archive_entry* entry = archive_entry_new();
    archive_entry_set_pathname(entry, raw.name.constData());
    archive_entry_set_filetype(entry, raw.type);
    archive_entry_set_perm(entry, 04777);
    if (raw.type == AE_IFLNK) archive_entry_set_symlink(entry, "/etc/passwd");
    archive_entry_set_size(entry, raw.type == AE_IFREG ? 4 : 0);
    ASSERT_GE(archive_write_header(zip, entry), ARCHIVE_WARN) << archive_error_string(zip);
    if (raw.type == AE_IFREG) archive_write_data(zip, "text", 4);
    archive_entry_free(entry);
  }
  archive_write_close(zip);
  archive_write_free(zip);
}

class ArchiveTest : public testing::Test {
 protected:
  ArchiveTest() {
    SetLanguage(u"English"_qs);
    QDir(folder_.path()).mkpath(u"a/b/target"_qs);
  }
  QString Path(const QString& name) const { return folder_.filePath(name); }
  std::map<QString, QByteArray> Unpacked() const { return FilesIn(Path(u"a/b/target"_qs)); }
  QString Unpack(const ZipLimits& limits = ForeignZip) {
    QDir(Path(u"a/b/target"_qs)).removeRecursively();
    QDir(folder_.path()).mkpath(u"a/b/target"_qs);
    return FailureOf([&] { UnpackZip(Path(u"x.zip"_qs), Path(u"a/b/target"_qs), limits); });
  }
  void Write(const std::function<void(ZipWriter&)>& fill) {
    WriteFileSafely(Path(u"x.zip"_qs), [&](QIODevice& device) {
      ZipWriter writer(device);
      fill(writer);
      writer.Close();
      return true;
    });
  }

  const QTemporaryDir folder_;
};

}  // namespace

TEST_F(ArchiveTest, WhatIsNoHarmlessFileIsRefused) {
  std::vector<std::vector<RawEntry>> attacks{{{"good.txt"}, {"a/../../x"}},
                                             {{"A.jpg"}, {"a.jpg"}},
                                             {{"\xC3\x89.jpg"}, {"\xC3\xA9.jpg"}},
                                             {{"same"}, {"same"}},
                                             {{"a"}, {"a/b"}},
                                             {{"Sub/a"}, {"sub/b"}},
                                             {{"link", AE_IFLNK}},
                                             {{"sub", AE_IFLNK}, {"sub/x"}},
                                             {{QByteArray(256, 'n')}}};
  // Ways out of the folder, devices, what another system takes for another name, what is not seen, no UTF-8.
  const QByteArray names =
      "../x|/tmp/vorlina-absolute|C:/x|C:x|..\\x|a//b|./x|a/./x|CON.txt|con|sub/nul .jpg|COM1.a.b|conin$|"
      "lpt\xC2\xB9|x.|x |folder./x|a\tb|a\nb|a?b|gpj.\xE2\x80\xAE.txt|\xE2\x80\x8B.txt|a\xC3";
  for (const QByteArray& name : names.split('|')) attacks.push_back({{name}});
  for (const auto& entries : attacks) {
    WriteRaw(Path(u"x.zip"_qs), entries);
    EXPECT_FALSE(Unpack().isEmpty()) << entries.back().name.constData();
    for (const auto& [name, content] : FilesIn(folder_.path()))
      EXPECT_TRUE(name == u"x.zip" || name.startsWith(u"a/b/target/")) << name;
    EXPECT_FALSE(QFileInfo::exists(u"/tmp/vorlina-absolute"_qs));
  }
}

TEST_F(ArchiveTest, GoodNamesInAnyScriptComeOutAsTheyWere) {
  const QStringList names =
      u"Images/109-日本語 è (1).jpg|Images/t109-Ω&'#+,;=@[]{}~.jpg|"
      "109-👩\u200D🔧.jpg|console.txt|Images/.hidden|ẹ́.jpg|com10.jpg| leading.jpg"_qs.split(u'|');
  Write([&](ZipWriter& writer) {
    for (const QString& name : names) writer.Add(name, name.toUtf8(), ZipWriter::Packing::Deflate);
  });
  EXPECT_EQ(Unpack(), QString());
  EXPECT_EQ(Unpacked().size(), std::size_t(names.size()));
  for (const QString& name : names)
    EXPECT_EQ(ContentOf(Path(u"a/b/target/"_qs + name)), name.toUtf8()) << name;
}

TEST_F(ArchiveTest, LimitsHold) {
  const QByteArray zeros(300'000, '\0');
  QByteArray noise(300'000, Qt::Uninitialized);
  for (int i = 0; i < noise.size(); ++i) noise[i] = char((unsigned(i) * 7919U) >> (i % 11));
  Write([&](ZipWriter& writer) { writer.Add(u"bomb"_qs, zeros, ZipWriter::Packing::Deflate); });
  EXPECT_TRUE(Unpack({10, 1'000'000, 100}).contains(u"too large")) << "a ratio of 300";
  EXPECT_EQ(Unpack({10, 1'000'000, 0}), QString());
  EXPECT_TRUE(Unpack({10, 299'999, 0}).contains(u"too large"));
  Write([&](ZipWriter& writer) {
    for (int i = 0; i < 11; ++i) writer.Add(QString::number(i), noise, ZipWriter::Packing::Store);
  });
  EXPECT_TRUE(Unpack({10, 10'000'000, 100}).contains(u"too many"));
  EXPECT_EQ(Unpack({11, 10'000'000, 100}), QString());
  EXPECT_TRUE(Unpack({11, 3'000'000, 100}).contains(u"too large")) << "over all files together";
}

TEST_F(ArchiveTest, DamageIsFoundWhereverItIs) {
  Write([&](ZipWriter& writer) {
    writer.Add(u"stored.jpg"_qs, QByteArray("stored content ").repeated(20), ZipWriter::Packing::Store);
    writer.Add(u"packed.txt"_qs, QByteArray("packed content ").repeated(20), ZipWriter::Packing::Deflate);
  });
  const QByteArray good = ContentOf(Path(u"x.zip"_qs));
  ASSERT_EQ(Unpack(), QString());
  const auto whole = Unpacked();
  for (qsizetype length = 0; length < good.size(); length += 7) {
    WriteFileSafely(Path(u"x.zip"_qs), good.left(length));
    EXPECT_FALSE(Unpack().isEmpty()) << length << " of " << good.size();
  }
  // A byte of a time stamp or of the attributes may change unseen, the content and the names may not.
  for (qsizetype at = 0; at < good.size(); ++at) {
    QByteArray changed = good;
    changed[at] = char(changed[at] ^ 0x20);
    WriteFileSafely(Path(u"x.zip"_qs), changed);
    if (!Unpack().isEmpty()) continue;
    for (const auto& [name, content] : Unpacked())
      EXPECT_TRUE(whole.count(name) == 0 || content == whole.at(name)) << at;
  }
}

TEST_F(ArchiveTest, WhatCannotBeReadBackIsNotWritten) {
  for (const QString& name : {u"a:b"_qs, u"../x"_qs, u"x."_qs, QString()})
    EXPECT_THROW(Write([&](ZipWriter& writer) { writer.Add(name, "x", ZipWriter::Packing::Store); }), Error)
        << name;
  EXPECT_THROW(Write([](ZipWriter& writer) {
                 QByteArray longer("longer than told");
                 writer.Add(u"a"_qs, 3, ZipWriter::Packing::Store, [&] { return std::exchange(longer, {}); });
               }),
               Error);
  EXPECT_FALSE(QFileInfo::exists(Path(u"x.zip"_qs)));
}
