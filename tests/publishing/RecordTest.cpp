// A publication that ends early since nothing has changed, and everything that keeps it from that.
#include "FolderState.h"
#include "vlhtml/SiteFixture.h"

using namespace vorlina;

namespace {

class RecordTest : public SiteFixture {
 protected:
  RecordTest() {
    // All that was written before a publication looks is old enough, what it writes itself is not.
    publishing::SetYoungFor(0);
    CopySkin();
    Publish();
    Publish();
  }
  ~RecordTest() override { publishing::SetYoungFor(publishing::UsuallyYoungFor); }

  // Whether a publication ended before it read the catalog.
  bool EndsEarly() {
    bool reported = false;
    report_ = Publish(SiteProgress([&](const QString&) { return reported = true; }));
    EXPECT_TRUE(report_.complete);
    return !reported;
  }
  int Changes() const { return report_.added + report_.changed + report_.removed; }

  VorlinaReport report_;
};

}  // namespace

TEST_F(RecordTest, NothingIsReadWhereNothingHasChanged) {
  const VorlinaReport before = Publish();
  ASSERT_TRUE(EndsEarly());
  EXPECT_EQ(Changes(), 0);
  EXPECT_EQ(report_.pages, before.pages);
  EXPECT_EQ(report_.pictures, before.pictures);
  EXPECT_EQ(report_.bytes, before.bytes);
  EXPECT_EQ(report_.notes.size(), before.notes.size());
  EXPECT_EQ(report_.open, before.open);
}

TEST_F(RecordTest, WhateverTheSiteIsMadeFromIsNoticed) {
  const auto changes = std::vector<std::function<void()>>{
      [&] { connection_.Execute(u"UPDATE Prodotti SET Descrizione='Other' WHERE CodiceProdotto='B-1'"_qs); },
      [&] { Picture(u"A-1"_qs, 50, 20); }, [&] { ChangeSkin(u"home.mustache"_qs, "<p>home</p>"); },
      [&] { ChangeSkin(u"assets/new.txt"_qs, "new"); },
      [&] { EXPECT_TRUE(QFile::remove(skin_ + u"/assets/new.txt"_qs)); }};
  for (std::size_t i = 0; i < changes.size(); ++i) {
    changes[i]();
    EXPECT_FALSE(EndsEarly()) << i;
    EXPECT_GT(Changes(), 0) << i;
    Publish();
    EXPECT_TRUE(EndsEarly()) << i;
  }
}

TEST_F(RecordTest, WhateverHappensToTheSiteIsNoticed) {
  const auto before = Files(target_);
  const QString page = target_ + u"/p-b-1.html"_qs;
  const auto changes = std::vector<std::function<void()>>{
      [&] { Write(page, "other"); },
      [&] { EXPECT_TRUE(QFile::remove(page)); },
      [&] { EXPECT_TRUE(QFile::remove(page) && QFile::copy(target_ + u"/index.html"_qs, page)); },
      [&] { EXPECT_TRUE(QFile::remove(target_ + u"/images/p-a-1_400w.jpg"_qs)); },
      [&] { EXPECT_TRUE(QFile::remove(target_ + u"/vorlina-manifest.txt"_qs)); },
      [&] { EXPECT_TRUE(QDir(target_ + u"/images"_qs).removeRecursively()); }};
  for (std::size_t i = 0; i < changes.size(); ++i) {
    changes[i]();
    EXPECT_FALSE(EndsEarly()) << i;
    EXPECT_TRUE(Files(target_) == before) << i;
    Publish();
    EXPECT_TRUE(EndsEarly()) << i;
  }
}

TEST_F(RecordTest, WhatWasWrittenAMomentAgoProvesNothing) {
  publishing::SetYoungFor(publishing::UsuallyYoungFor);
  Publish();
  EXPECT_FALSE(EndsEarly());
}

TEST_F(RecordTest, ADamagedRecordIsNone) {
  const QString folder = AppFile(u"PubWiz/VLHTML.HTML/Published"_qs);
  const QStringList records = QDir(folder).entryList(QDir::Files);
  ASSERT_EQ(records.size(), 1);
  QByteArray record = ContentOf(folder + u'/' + records[0]);
  record[record.size() / 2] = char(record[record.size() / 2] + 1);
  Write(folder + u'/' + records[0], record);
  EXPECT_FALSE(EndsEarly());
  EXPECT_EQ(Changes(), 0);
}
