// Pictures for readers: what is made of a source, that nothing is made twice, and that whatever happened to
// the folder in which they are kept never shows in a publication.
#include <sys/stat.h>

#include <QDateTime>
#include <random>

#include <webp/decode.h>

#include "base/AppPath.h"
#include "images/JpegCodec.h"
#include "publish/WebPictures.h"
#include "support/CatalogFixture.h"
#include "support/FullDisk.h"
#include "support/TestJpeg.h"

using namespace vorlina;

namespace {

const QList<int> Sizes = {400, 800};

class AskedProgress : public IVorlinaProgress {
 public:
  explicit AskedProgress(int reports) : reports_(reports) {}
  bool Report(int, int, const QString&) override { return reports_-- > 0; }

 private:
  int reports_;
};

// A date long past: what was written just now may change once more without another time.
void Age(const QString& path, int hours = 5) {
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadWrite));
  ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(-hours * 3600),
                               QFileDevice::FileModificationTime));
}

QByteArray Photo(QSize size, unsigned seed = 1, const JpegForm& form = {}) {
  return MakeJpeg(MakePhoto(size, seed), form);
}

class WebPicturesTest : public StoreFixture {
 protected:
  QString Source(const QString& name, const QByteArray& content) const {
    QString path = AppFile(u"Images/"_qs + name);
    WriteFileSafely(path, content);
    Age(path);
    return path;
  }
  static QList<VorlinaWebPictures> Prepare(const QStringList& sources, const QList<int>& sizes = Sizes,
                                           int reports = 1'000'000) {
    // A program that was started anew.
    static std::vector<std::unique_ptr<WebPictures>> programs;
    programs.push_back(std::make_unique<WebPictures>());
    AskedProgress progress(reports);
    return programs.back()->Prepare(sources, sizes, progress);
  }
  static VorlinaWebPictures PrepareOne(const QString& source, const QList<int>& sizes = Sizes) {
    return Prepare({source}, sizes).value(0);
  }
  static QString Cache(const QString& name = {}) { return AppFile(WebPicturesFolder + u'/' + name); }
  static void AgeAll() {
    for (const auto& [name, content] : FilesIn(Cache())) Age(Cache(name));
  }
};

QStringList FilesOf(const VorlinaWebPictures& made) {
  QStringList files;
  for (const VorlinaWebPicture& picture : made.pictures) {
    files += picture.jpeg;
    if (!picture.webp.isEmpty()) files += picture.webp;
  }
  return files;
}

// What a reader would get: the sizes of the JPEG files, or what is wrong with a file.
QString Got(const VorlinaWebPictures& made) {
  QString got = made.fault.isEmpty() ? QString() : u"fault "_qs;
  for (const VorlinaWebPicture& picture : made.pictures) {
    const QSize size = DecodeJpeg(ContentOf(picture.jpeg), {}).Size();
    got += u"%1x%2%3 "_qs.arg(size.width()).arg(size.height()).arg(size == picture.size ? u"" : u"?");
    if (!picture.webp.isEmpty() && !ContentOf(picture.webp).startsWith("RIFF")) got += u"no WebP "_qs;
  }
  return got.trimmed();
}

}  // namespace

TEST_F(WebPicturesTest, StandUprightInEachSizeWithNothingBeside) {
  JpegForm form;
  form.exif = MakeExif(6);
  const VorlinaWebPictures made =
      PrepareOne(Source(u"a.jpg"_qs, Photo({1000, 500}, 1, form)), {800, 400, 400});
  EXPECT_EQ(Got(made), u"200x400 400x800"_qs);
  EXPECT_EQ(made.size, QSize(500, 1000));
  for (const QString& file : FilesOf(made))
    EXPECT_TRUE(!ContentOf(file).contains("Exif") && !ContentOf(file).contains("EXIF")) << file.toStdString();
  EXPECT_EQ(Got(PrepareOne(Source(u"b.jpg"_qs, Photo({300, 200})))), u"300x200"_qs);
  EXPECT_EQ(Got(PrepareOne(Source(u"c.jpg"_qs, Photo({500, 20})))), u"400x16 500x20"_qs);
}

TEST_F(WebPicturesTest, BringTheOriginalWithNothingBesideWhereItIsLarger) {
  JpegForm form;
  form.exif = MakeExif(6);
  form.progressive = true;
  QByteArray content = Photo({900, 500}, 1, form);
  content.insert(content.lastIndexOf("\xFF\xDA"), QByteArray("\xFF\xFE\0\x08secret", 10));
  for (const char* marker : {"\xFF\xED", "\xFF\xE2", "\xFF\xE0"})
    content.insert(2, marker + QByteArray("\0\x08secret", 8));
  const QString source = Source(u"a.jpg"_qs, content + "secret");
  for (int run = 0; run < 2; ++run) {
    const VorlinaWebPicture full = PrepareOne(source).full;
    const QByteArray bare = ContentOf(full.jpeg);
    EXPECT_EQ(full.size, QSize(500, 900));
    EXPECT_TRUE(full.jpeg.startsWith(Cache()) && full.webp.isEmpty());
    EXPECT_FALSE(bare.contains("secret") || bare.contains("VorlinaCam") || bare.contains("45.07"));
    EXPECT_EQ(ReadJpegHead(bare).orientation, 6);
    EXPECT_EQ(DecodeJpeg(bare, {}).planes[0].samples, DecodeJpeg(content, {}).planes[0].samples);
    QFile::resize(full.jpeg, 100);  // made again
  }
  const QString clean = Source(u"b.jpg"_qs, Photo({900, 500}));
  for (int run = 0; run < 2; ++run) EXPECT_EQ(PrepareOne(clean).full.jpeg, clean);
  EXPECT_EQ(PrepareOne(source, {400, 1000}).full.jpeg, QString()) << "it is the last of the sizes";
}

TEST_F(WebPicturesTest, StayForAnHourWhenOtherSizesTakeTheirPlace) {
  const QString source = Source(u"a.jpg"_qs, Photo({300, 200}));
  QList<int> sizes;
  for (int size = 100; size < 116; ++size) sizes += size;
  const VorlinaWebPictures first = PrepareOne(source, sizes);
  const auto left = [&] {
    const QStringList files = FilesOf(first);
    return std::count_if(files.begin(), files.end(), [](const QString& file) { return QFile::exists(file); });
  };
  AgeAll();
  PrepareOne(source, {50, 60});
  EXPECT_EQ(left(), FilesOf(first).size()) << "somebody may be copying them";
  AgeAll();
  PrepareOne(source, {70});
  EXPECT_LT(left(), FilesOf(first).size());
}

TEST_F(WebPicturesTest, HaveAWebpOnlyWhereItIsSmallerByAQuarter) {
  QImage noise(400, 400, QImage::Format_Grayscale8);
  std::mt19937 random(1);
  for (int y = 0; y < 400; ++y)
    for (int x = 0; x < 400; ++x) noise.scanLine(y)[x] = uchar(random());
  JpegForm grey;
  grey.colours = JpegForm::Colours::Grey;
  const VorlinaWebPictures rough = PrepareOne(Source(u"noise.jpg"_qs, MakeJpeg(noise, grey)), {400});
  EXPECT_EQ(FilesOf(rough).join(u' '), rough.pictures[0].jpeg);
  QImage soft(400, 400, QImage::Format_RGB32);
  soft.fill(Qt::darkGreen);
  const VorlinaWebPicture plain = PrepareOne(Source(u"soft.jpg"_qs, MakeJpeg(soft)), {400}).pictures[0];
  ASSERT_FALSE(plain.webp.isEmpty());
  const QByteArray webp = ContentOf(plain.webp);
  EXPECT_LE(webp.size() * 4, ContentOf(plain.jpeg).size() * 3);
  int width = 0;
  int height = 0;
  std::uint8_t* rgb = WebPDecodeRGB(reinterpret_cast<const std::uint8_t*>(webp.constData()),
                                    std::size_t(webp.size()), &width, &height);
  EXPECT_TRUE(QSize(width, height) == plain.size && rgb[0] < 8 && std::abs(rgb[1] - 128) < 8 && rgb[2] < 8)
      << "of the same colour";
  WebPFree(rgb);
}

TEST_F(WebPicturesTest, AreMadeAgainOnlyWhereTheSourceHasChanged) {
  const QByteArray content = Photo({1000, 800});
  const QString source = Source(u"a.jpg"_qs, content);
  const VorlinaWebPictures first = PrepareOne(source);
  Source(u"a.jpg"_qs, QByteArray(content.size(), 'x'));
  struct stat before {};
  const VorlinaWebPictures none = PrepareOne(source);
  EXPECT_FALSE(none.fault.isEmpty()) << "another time";
  WriteFileSafely(source, content);
  const QDateTime time = QDateTime::currentDateTime().addDays(-1);
  const auto settle = [&] {
    QFile file(source);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.setFileTime(time, QFileDevice::FileModificationTime));
  };
  settle();
  const VorlinaWebPictures second = PrepareOne(source);
  EXPECT_NE(second.stamp, first.stamp);
  ASSERT_EQ(stat(qPrintable(second.pictures[0].jpeg), &before), 0);
  const VorlinaWebPictures third = PrepareOne(source);
  EXPECT_EQ(FilesOf(third), FilesOf(second));
  EXPECT_EQ(third.stamp, second.stamp);
  struct stat after {};
  ASSERT_EQ(stat(qPrintable(third.pictures[0].jpeg), &after), 0);
  EXPECT_TRUE(before.st_ino == after.st_ino && before.st_mtim.tv_nsec == after.st_mtim.tv_nsec);
  WriteFileSafely(source, QByteArray(content.size(), 'x'));
  settle();
  EXPECT_FALSE(PrepareOne(source).fault.isEmpty()) << "the former time was set";
}

TEST_F(WebPicturesTest, AreMadeOfTheOtherFilesWhereOneIsBroken) {
  const QByteArray content = Photo({1000, 800});
  const QStringList sources = {Source(u"cut.jpg"_qs, content.left(content.size() / 2)),
                               Source(u"text.jpg"_qs, "text"),
                               AppFile(u"Images/none.jpg"_qs),
                               AppFile(u"Images"_qs),
                               Source(u"good.jpg"_qs, content),
                               AppFile(u"Images/good.jpg"_qs)};
  for (int run = 0; run < 2; ++run) {
    const QList<VorlinaWebPictures> made = Prepare(sources);
    ASSERT_EQ(made.size(), sources.size());
    QStringList got;
    for (const VorlinaWebPictures& each : made) got += Got(each);
    EXPECT_EQ(got.join(u'|'), u"fault|fault|fault|fault|400x320 800x640|400x320 800x640"_qs);
    EXPECT_TRUE(made[0].fault.contains(u"cut.jpg")) << made[0].fault.toStdString();
  }
}

TEST_F(WebPicturesTest, AreMadeAgainWhereTheFolderWasDamaged) {
  const QString source = Source(u"a.jpg"_qs, Photo({1000, 800}));
  const QByteArray other = "other";
  const std::function<void(const VorlinaWebPicture&)> damages[] = {
      [](const VorlinaWebPicture& made) { QFile::resize(made.jpeg, 100); },
      [](const VorlinaWebPicture& made) { QFile::resize(made.webp, 100); },
      [](const VorlinaWebPicture& made) { QFile::remove(made.webp); },
      [&](const VorlinaWebPicture&) { WriteFileSafely(Cache(u"list"_qs), other); },
      [](const VorlinaWebPicture&) { QFile::resize(Cache(u"list"_qs), 60); },
      [](const VorlinaWebPicture&) { QDir(Cache()).removeRecursively(); }};
  for (const auto& damage : damages) {
    damage(PrepareOne(source).pictures[0]);
    EXPECT_EQ(Got(PrepareOne(source)), u"400x320 800x640"_qs);
    EXPECT_EQ(FilesOf(PrepareOne(source)), FilesOf(PrepareOne(source))) << "the folder serves again";
  }
}

TEST_F(WebPicturesTest, AreMadeElsewhereWhereTheFolderTakesNothing) {
  const QString source = Source(u"a.jpg"_qs, Photo({1000, 800}));
  WriteFileSafely(Cache().chopped(1), "a file in its place");
  EXPECT_EQ(Got(PrepareOne(source)), u"400x320 800x640"_qs);
  EXPECT_EQ(ContentOf(Cache().chopped(1)), "a file in its place");
  QFile::remove(Cache().chopped(1));
  {
    const FullDisk full(2000);
    EXPECT_NE(FailureOf([&] { PrepareOne(source); }), QString()) << "no place for pictures anywhere";
  }
  EXPECT_EQ(Got(PrepareOne(source)), u"400x320 800x640"_qs);
}

TEST_F(WebPicturesTest, KeepWhatWasMadeBeforeAStop) {
  QStringList sources;
  for (int i = 0; i < 40; ++i) sources += Source(u"%1.jpg"_qs.arg(i), Photo({300, 200}, unsigned(i)));
  EXPECT_TRUE(Prepare(sources, Sizes, 2).isEmpty());
  const auto stopped = FilesIn(Cache());
  EXPECT_GT(stopped.size(), 1U);
  const QList<VorlinaWebPictures> made = Prepare(sources);
  ASSERT_EQ(made.size(), sources.size());
  const auto complete = FilesIn(Cache());
  for (const auto& [name, content] : stopped) EXPECT_EQ(complete.count(name), 1U) << name.toStdString();
  EXPECT_EQ(complete.size(), std::size_t(FilesOf(made[0]).size()) * 40 + 1) << "nothing was made twice";
}

TEST_F(WebPicturesTest, GoWithTheirSourceAndNothingElseGoes) {
  const QString gone = Source(u"gone.jpg"_qs, Photo({500, 400}));
  const QString kept = Source(u"kept.jpg"_qs, Photo({500, 400}, 2));
  const QList<VorlinaWebPictures> made = Prepare({gone, kept}, {400});
  WriteFileSafely(Cache(u"notes.txt"_qs), "the user's own");
  AgeAll();
  QFile::remove(gone);
  Prepare({Source(u"new.jpg"_qs, Photo({500, 400}, 3))}, {400});
  for (const QString& file : FilesOf(made[0])) Age(file);  // they stay for an hour
  Prepare({Source(u"newer.jpg"_qs, Photo({500, 400}, 4))}, {400});
  for (const QString& file : FilesOf(made[0])) EXPECT_FALSE(QFile::exists(file));
  for (const QString& file : FilesOf(made[1])) EXPECT_TRUE(QFile::exists(file));
  EXPECT_TRUE(QFile::exists(Cache(u"notes.txt"_qs)));
}
