// Which pictures are published, under which names, and what a page says of them.
#include "PublishedPictures.h"

#include "support/CatalogFixture.h"
#include "support/TestJpeg.h"

using namespace vorlina;
using namespace publishing;

namespace {

// Makes two sizes of every file but those named "bad", the larger one only where the file's name has it so.
class MadePictures : public IVorlinaPictures {
 public:
  QList<VorlinaWebPictures> Prepare(const QStringList& sources, const QList<int>& sizes,
                                    IVorlinaProgress& progress) override {
    QList<VorlinaWebPictures> all;
    if (!progress.Report(int(sources.size()), int(sources.size()), u"step"_qs)) return all;
    for (const QString& source : sources) {
      VorlinaWebPictures made{source.contains(u"bad") ? u"broken"_qs : QString(), {1000, 500}, "stamp", {}};
      const QString small = source.contains(u"half") ? QString() : u"small.webp"_qs;
      if (made.fault.isEmpty())
        made.pictures = {{{sizes[0], sizes[0] / 2}, u"small.jpg"_qs, small},
                         {{sizes[1], sizes[1] / 2}, source, u"large.webp"_qs}};
      if (!source.contains(u"whole")) made.full = {made.size, u"bare.jpg"_qs, {}};
      all.append(made);
    }
    return all;
  }
};

class Counted : public IVorlinaProgress {
 public:
  bool Report(int done, int total, const QString&) override {
    EXPECT_LE(done_, done);
    done_ = done;
    total_ = total;
    return goesOn_;
  }
  int done_ = 0;
  int total_ = 0;
  bool goesOn_ = true;
};

class PublishedPicturesTest : public StoreFixture {
 protected:
  // A product with these files, which are made in the application folder where they have no path.
  void Add(const QString& code, const QStringList& files) {
    Product product;
    product.code = code;
    for (const QString& file : files) {
      const QString path = file.startsWith(u'/') ? file : AppFile(u"Images/"_qs + file);
      if (!file.startsWith(u'/') && !file.contains(u"missing")) WriteFileSafely(path, "JPEG");
      product.pictures.push_back({path, {}});
    }
    catalog_.products.push_back(product);
    names_ += u"p-"_qs + code.toLower();
  }
  PublishedPictures Plan() const {
    return PublishedPictures({&catalog_, names_, AppFile(u"Images"_qs), {800, 400}, false});
  }

  CatalogSnapshot catalog_;
  QStringList names_;
  MadePictures made_;
  Counted progress_;
};

}  // namespace

TEST_F(PublishedPicturesTest, HaveTheirNamesAndTrueWidths) {
  Add(u"A"_qs, {u"a.jpg"_qs, u"whole.jpg"_qs, u"half.jpg"_qs});
  Add(u"B"_qs, {u"b.jpg"_qs});
  names_[1].clear();
  PublishedPictures pictures = Plan();
  ASSERT_TRUE(pictures.Prepare(made_, progress_));
  const std::vector<PublishedPicture>& a = pictures.Of(0);
  ASSERT_EQ(a.size(), 3U);
  EXPECT_EQ(a[0].JpegSet(), "images/p-a_400w.jpg 400w, images/p-a_800w.jpg 800w");
  EXPECT_EQ(a[0].WebpSet(), "images/p-a_400w.webp 400w, images/p-a_800w.webp 800w");
  EXPECT_EQ(a[0].file, u"images/p-a.jpg"_qs);
  EXPECT_EQ(a[1].file, u"images/p-a_2_800w.jpg"_qs) << "as large as the original";
  EXPECT_EQ(a[2].WebpSet(), "") << "not of every size";
  QStringList files;
  for (const PictureCopy& copy : a[2].copies) files += copy.file;
  EXPECT_EQ(files.join(u' '), u"images/p-a_3_400w.jpg images/p-a_3_800w.jpg images/p-a_3.jpg"_qs);
  EXPECT_EQ(a[2].copies.back().source, u"bare.jpg"_qs) << "not the original itself";
  EXPECT_TRUE(pictures.Of(1).empty()) << "not published";
  EXPECT_TRUE(progress_.done_ == 3 && progress_.total_ == 3 && pictures.AreAllMade());
}

TEST_F(PublishedPicturesTest, NeverMeetUnderOneName) {
  Add(u"TAV"_qs, QStringList(16, u"a.jpg"_qs));
  Add(u"TAV-400"_qs, {u"b.jpg"_qs});
  Add(u"TAV-16"_qs, {u"c.jpg"_qs});
  PublishedPictures pictures({&catalog_, names_, AppFile(u"Images"_qs), {16, 400}, false});
  ASSERT_TRUE(pictures.Prepare(made_, progress_));
  QSet<QString> files;
  qsizetype count = 0;
  for (std::size_t i = 0; i < 3; ++i)
    for (const PublishedPicture& picture : pictures.Of(i))
      for (const PictureCopy& copy : picture.copies) {
        files += copy.file;
        ++count;
      }
  EXPECT_EQ(count, 18 * 5);
  EXPECT_EQ(files.size(), count);
}

TEST_F(PublishedPicturesTest, ComeFromTheFolderOfPicturesAlone) {
  WriteFileSafely(AppFile(u"secret.jpg"_qs), "JPEG");
  QFile::link(AppFile(u"secret.jpg"_qs), AppFile(u"Images/link.jpg"_qs));
  QDir().mkpath(AppFile(u"Images/below"_qs));
  Add(u"A"_qs,
      {AppFile(u"secret.jpg"_qs), AppFile(u"Images/link.jpg"_qs), AppFile(u"Images/../secret.jpg"_qs)});
  Add(u"B"_qs, {u"missing.jpg"_qs, u"bad.jpg"_qs, u"below/good.jpg"_qs});
  PublishedPictures pictures = Plan();
  ASSERT_TRUE(pictures.Prepare(made_, progress_));
  EXPECT_TRUE(pictures.Of(0).empty());
  ASSERT_EQ(pictures.Of(1).size(), 1U);
  EXPECT_EQ(pictures.Of(1)[0].file, u"images/p-b_3.jpg"_qs);
  EXPECT_FALSE(pictures.AreAllMade()) << "to be tried again";
  QString products;
  for (const VorlinaNote& note : pictures.Notes()) {
    EXPECT_TRUE(note.kind == VorlinaNote::Kind::Picture && !note.text.isEmpty());
    products += note.product;
  }
  EXPECT_EQ(products, u"AAABB"_qs);
}

TEST_F(PublishedPicturesTest, HaveIconsOfTheLogo) {
  const QString logo = AppFile(u"Images/logo.jpg"_qs);
  WriteFileSafely(logo, MakeJpeg(MakeQuarters({300, 100})));
  catalog_.logo.source = logo;
  PublishedPictures pictures = Plan();
  ASSERT_TRUE(pictures.Prepare(made_, progress_));
  ASSERT_EQ(pictures.Icons().size(), 2U);
  for (const PublishedIcon& icon : pictures.Icons()) {
    const QImage drawn = QImage::fromData(pictures.Draw(icon), "png");
    EXPECT_EQ(drawn.size(), QSize(icon.side, icon.side));
    EXPECT_EQ(drawn.pixelColor(0, 0), QColor(Qt::white));
    EXPECT_GT(drawn.pixelColor(icon.side / 4, icon.side / 2 - icon.side / 10).red(), 200);
  }
  WriteFileSafely(logo, "damaged");
  EXPECT_ANY_THROW(pictures.Draw(pictures.Icons()[0]));
  progress_.goesOn_ = false;
  EXPECT_FALSE(Plan().Prepare(made_, progress_));
}
