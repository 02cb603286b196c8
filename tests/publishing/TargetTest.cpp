// The folder that a site is published into: which one may be, what is known of it, and that it is left as it
// was when something goes wrong.
#include <FolderLock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "Crew.h"
#include "Manifest.h"
#include "SiteSwap.h"
#include "vlhtml/SiteFixture.h"

using namespace vorlina;

namespace {

// Rights count for nothing with root: meanwhile this process is somebody else, to whom the folder belongs.
class Unprivileged {
 public:
  explicit Unprivileged(const QString& folder) {
    if (geteuid() != 0) return;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.toStdString()))
      EXPECT_EQ(lchown(entry.path().c_str(), 65534, 65534), 0);
    EXPECT_EQ(chown(folder.toLocal8Bit().constData(), 65534, 65534), 0);
    EXPECT_EQ(seteuid(65534), 0);
  }
  ~Unprivileged() { EXPECT_EQ(seteuid(getuid()), 0); }
  Unprivileged(const Unprivileged&) = delete;
  Unprivileged& operator=(const Unprivileged&) = delete;
};

void SetRights(const QString& path, unsigned rights) {
  EXPECT_EQ(chmod(QFile::encodeName(path).constData(), rights), 0);
}

// Answers all questions alike.
class Answers : public IVorlinaUi {
 public:
  void Tell(const QString&) override {}
  bool Ask(const QString& question, const QString&) override { return asked = question, yes; }
  int Choose(const QString&, const QString&, const QStringList&, int, const QString&) override { return -1; }
  QString ChooseFile(const QString&, const QString&, const QString&) override { return {}; }
  void Publish(IVorlinaPublisher&, IVorlinaConnection&, int) override {}

  bool yes = false;
  QString asked;
};

class TargetTest : public SiteFixture {
 protected:
  // What publishing a catalog tells when it fails; "" when it does not, "asked" when it was not wanted.
  QString Publishing(int catalog, const QString& folder, IVorlinaUi* ui = nullptr,
                     SiteProgress progress = SiteProgress()) {
    return FailureOf([&] {
      if (!PublishTo(folder, catalog, false, progress, ui).complete) throw Error(u"asked"_qs);
    });
  }
  QString ManifestFile() const { return target_ + u"/vorlina-manifest.txt"_qs; }
};

}  // namespace

TEST_F(TargetTest, OfAnotherCatalogIsReplacedOnlyWhenAsked) {
  const int other = AddCatalog(u"other"_qs);
  ASSERT_EQ(Publishing(1, target_), QString());
  // A copy of a catalog has its values.
  connection_.Execute(
      u"INSERT INTO CExtension SELECT ?,IDExtension,Valore FROM CExtension WHERE IDCatalogo=1"_qs, {other});
  const auto site = Files(target_);
  EXPECT_TRUE(Publishing(other, target_).contains(u"another catalog"));
  Answers answers;
  EXPECT_EQ(Publishing(other, target_, &answers), u"asked"_qs);
  EXPECT_TRUE(answers.asked.contains(u"(\"Tavola & <casa>\")"));
  EXPECT_TRUE(Files(target_) == site);
  answers.yes = true;
  EXPECT_EQ(Publishing(other, target_, &answers), QString());
  EXPECT_FALSE(QFileInfo::exists(target_ + u"/p-a-1.html"_qs));
  EXPECT_EQ(Publishing(other, target_), QString()) << "it is its own now";
}

TEST_F(TargetTest, OfAnotherProfileIsReplacedOnlyWhenAsked) {
  ASSERT_EQ(Publishing(1, target_), QString());
  auto old = *publishing::Manifest::Read(ManifestFile());
  old.profile.clear();
  Write(ManifestFile(), old.ToText());
  profile_.identifier = u"public"_qs;
  ASSERT_EQ(Publishing(1, target_), QString()) << "who published it before is not told there";
  profile_.identifier = u"dealers"_qs;
  const auto site = Files(target_);
  EXPECT_TRUE(Publishing(1, target_).contains(u"another profile"));
  Answers answers;
  EXPECT_EQ(Publishing(1, target_, &answers), u"asked"_qs);
  EXPECT_TRUE(answers.asked.contains(u"another profile"));
  EXPECT_TRUE(Files(target_) == site);
  QFile::remove(ManifestFile());
  EXPECT_TRUE(Publishing(1, target_).contains(u"another profile"))
      << "its pages tell, when their list is lost";
  answers.yes = true;
  EXPECT_EQ(Publishing(1, target_, &answers), QString());
  EXPECT_EQ(Publishing(1, target_), QString()) << "it is its own now";
}

TEST_F(TargetTest, AmongFilesOfTheUserItComesOnlyWhenAskedOnce) {
  const QString hidden = folder_.filePath(u"hidden"_qs);
  Write(hidden + u"/.git/config"_qs, "theirs");
  Write(target_ + u"/letters/one.txt"_qs, "theirs");
  const auto before = Files(target_);
  Answers answers;
  EXPECT_EQ(Publishing(1, target_, &answers), u"asked"_qs);
  EXPECT_TRUE(answers.asked.contains(u"other files"));
  EXPECT_TRUE(Files(target_) == before);
  EXPECT_EQ(Publishing(1, hidden, &answers), QString());
  EXPECT_EQ(Publishing(1, target_), QString()) << "nobody is there to be asked";
  EXPECT_EQ(Publishing(1, target_, &answers), QString()) << "the site stands there";
  EXPECT_EQ(Page(u"letters/one.txt"_qs), "theirs");
}

TEST_F(TargetTest, APreviewNeverAsks) {
  preview_ = true;
  for (int i = 0; i < 2; ++i) EXPECT_EQ(Publishing(1, target_), QString());
}

TEST_F(TargetTest, ASwapThatWasKilledIsNotFinishedInAnotherFolder) {
  ASSERT_EQ(Publishing(1, target_), QString());
  const auto list = publishing::Manifest::OfFolder(target_);
  const QString staging = folder_.filePath(u".site.vorlina-new"_qs);
  Write(publishing::SiteSwap::NewFiles(staging) + u"/index.html"_qs, "new");
  publishing::SiteSwap(target_, staging, false).Begin(list, list);
  ASSERT_TRUE(QDir(target_).removeRecursively());
  Write(target_ + u"/index.html"_qs, "mine");
  EXPECT_TRUE(Publishing(1, target_).contains(u"another site"));
  EXPECT_EQ(Page(u"index.html"_qs), "mine");
  EXPECT_TRUE(Beside().isEmpty());
}

TEST_F(TargetTest, IsNoFolderOfTheProgramOrOfSomebodyElse) {
  Write(folder_.filePath(u"theirs/index.HTM"_qs), "theirs");
  qputenv("HOME", folder_.filePath(u"homes/one"_qs).toUtf8());
  QDir().mkpath(QDir::homePath());
  QFile::link(AppFile(u"Images"_qs), AppFile(u"link"_qs));
  const auto before = Files(folder_.path());
  for (const QString& folder :
       {AppPath(), u"/"_qs, QFileInfo(AppPath()).path(), AppFile(u"Images"_qs), AppFile(u"Images/new"_qs),
        AppFile(u"link/new"_qs), AppFile(u"PubWiz"_qs), AppFile(u"Layouts/x"_qs), QDir::homePath(),
        folder_.filePath(u"homes"_qs), AppFile(u"theirs"_qs)})
    EXPECT_TRUE(Publishing(1, folder).contains(u"Choose")) << folder;
  EXPECT_TRUE(Files(folder_.path()) == before);
}

TEST_F(TargetTest, OnlyPicturesOfThisFolderArePublishedAndTheOthersTold) {
  const QString good = AppFile(u"Images/1-A-1.jpg"_qs);
  Write(AppFile(u"Images/text.jpg"_qs), "a text");
  ASSERT_TRUE(QFile::copy(good, folder_.filePath(u"outside.jpg"_qs)));
  ASSERT_TRUE(QFile::link(folder_.filePath(u"outside.jpg"_qs), AppFile(u"Images/link.jpg"_qs)));
  ASSERT_TRUE(QFile::copy(good, AppFile(u"Images/secret.jpg"_qs)));
  SetRights(AppFile(u"Images/secret.jpg"_qs), 0);
  CopySkin();
  const Unprivileged nobody(folder_.path());
  for (const auto& [picture, tells] : {std::pair{AppFile(u"Images/text.jpg"_qs), u"broken"_qs},
                                       {Path(), u"does not lie in"_qs},
                                       {folder_.filePath(u"outside.jpg"_qs), u"does not lie in"_qs},
                                       {AppFile(u"Images/../outside.jpg"_qs), u"does not lie in"_qs},
                                       {AppFile(u"Images/link.jpg"_qs), u"does not lie in"_qs},
                                       {AppFile(u"Images/secret.jpg"_qs), u"broken"_qs},
                                       {AppFile(u"Images/none.jpg"_qs), u"does not exist"_qs}}) {
    SetImage(u"B-1"_qs, picture);
    QList<VorlinaNote> notes = PublishTo(target_, 1, false, SiteProgress()).notes;
    notes.removeIf([](const VorlinaNote& note) { return note.kind == VorlinaNote::Kind::NoDescription; });
    notes.removeIf([](const VorlinaNote& note) { return note.kind == VorlinaNote::Kind::NoPicture; });
    ASSERT_EQ(notes.size(), 1) << picture;
    EXPECT_TRUE(notes[0].product == u"B-1" && notes[0].text.contains(tells)) << picture;
    EXPECT_FALSE(QFileInfo::exists(target_ + u"/images/p-b-1_400w.jpg"_qs)) << picture;
    EXPECT_FALSE(Page(u"p-b-1.html"_qs).contains("<img src=\"images/p-b-1")) << picture;
  }
}

TEST_F(TargetTest, TheListTellsNothingOfTheComputer) {
  ASSERT_EQ(Publishing(1, target_), QString());
  const QByteArray list = ContentOf(ManifestFile());
  const QByteArray time =
      QByteArray::number(QFileInfo(AppFile(u"Images/1-A-1.jpg"_qs)).lastModified().toSecsSinceEpoch());
  for (const QByteArray& line : list.split('\n'))
    for (const QByteArray& part : line.split('\t'))
      for (const QByteArray& text : {part, QByteArray::fromHex(part)})
        EXPECT_FALSE(text.contains("1-A-1") || text.contains(time)) << line.constData();
  const auto manifest = publishing::Manifest::Read(ManifestFile());
  ASSERT_TRUE(manifest);
  const QString cut = folder_.filePath(u"cut"_qs);
  for (const QString& name :
       {u"../Catalog.db"_qs, u"/etc/passwd"_qs, u"a/../../b"_qs, u"a//b"_qs, u"c:x"_qs, QString()}) {
    publishing::Manifest hostile = *manifest;
    hostile.entries.insert(name, {});
    Write(cut, hostile.ToText());
    EXPECT_FALSE(publishing::Manifest::Read(cut)) << name;
  }
}

TEST_F(TargetTest, ALostOrCutListIsMadeAnewFromThePages) {
  Write(target_ + u"/about/own.html"_qs, "mine");
  for (const auto& [lost, cut] :
       {std::pair{ManifestFile(), false}, {ManifestFile(), true}, {target_ + u"/index.html"_qs, false}}) {
    ASSERT_EQ(Publishing(1, target_), QString());
    const auto before = Files(target_);
    Write(target_ + u"/mine.html"_qs, Page(u"p-b-1.html"_qs).replace("Secondo", "My own"));
    QFile::remove(lost);
    cut ? Write(ManifestFile(), before[u"vorlina-manifest.txt"_qs].left(700))
        : void(QFile::remove(ManifestFile()));
    EXPECT_EQ(Publishing(1, target_), QString());
    EXPECT_TRUE(QFile::remove(target_ + u"/mine.html"_qs)) << "a page that was changed is not ours";
    EXPECT_TRUE(Files(target_) == before);
  }
  connection_.Execute(u"DELETE FROM Prodotti WHERE CodiceProdotto='A-1'"_qs);
  QFile::remove(ManifestFile());
  EXPECT_EQ(Publishing(1, target_), QString());
  EXPECT_FALSE(QFileInfo::exists(target_ + u"/p-a-1.html"_qs) || QFileInfo::exists(target_ + u"/images"_qs));
}

TEST_F(TargetTest, ASwapThatFailsGoesBack) {
  ASSERT_EQ(Publishing(1, target_), QString());
  connection_.Execute(u"UPDATE Cataloghi SET Titolo='Nuovo'"_qs);
  connection_.Execute(u"DELETE FROM Prodotti WHERE CodiceProdotto='B-1'"_qs);
  for (const QString& code : {u"000"_qs, u"ZZZ"_qs, u"New"_qs}) {
    Add(code, {}, 9, 0, 0, true);
    Picture(code, 8, 8);
  }
  const auto before = Files(target_);
  const QString intruder = target_ + u"/images/p-new_400w.jpg"_qs;
  const SiteProgress progress([&](const QString& step) {
    if (step.startsWith(u"Writing") && !QFileInfo::exists(intruder)) Write(intruder, "mine");
    return true;
  });
  EXPECT_TRUE(Publishing(1, target_, nullptr, progress).contains(u"p-new_400w.jpg"));
  EXPECT_TRUE(QFile::remove(intruder));
  EXPECT_TRUE(Files(target_) == before);
  EXPECT_TRUE(Beside().isEmpty());

  // A file in the place of a folder is seen before anything is written.
  ASSERT_TRUE(QDir(target_ + u"/images"_qs).removeRecursively());
  Write(target_ + u"/images"_qs, "mine");
  const auto withFile = Files(target_);
  EXPECT_TRUE(Publishing(1, target_).contains(u"Move it"));
  EXPECT_TRUE(Files(target_) == withFile);
}

TEST_F(TargetTest, RightsThatAreMissingLeaveTheSiteAndWhatCannotBeDeletedIsTriedAgain) {
  ASSERT_EQ(Publishing(1, target_), QString());
  const QString images = target_ + u"/images"_qs;
  CopySkin();
  const Unprivileged nobody(folder_.path());
  SetRights(images, 0555);
  connection_.Execute(u"UPDATE Prodotti SET Pubblica=FALSE WHERE CodiceProdotto='A-1'"_qs);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(Publishing(1, target_), QString());
    EXPECT_TRUE(QFileInfo::exists(images + u"/p-a-1_400w.jpg") &&
                !QFileInfo::exists(target_ + u"/p-a-1.html"));
  }
  const auto before = Files(target_);
  connection_.Execute(u"UPDATE Prodotti SET Pubblica=TRUE"_qs);
  EXPECT_TRUE(Publishing(1, target_).contains(u"permissions"))
      << "the picture has its place, and cannot be replaced";
  EXPECT_TRUE(Files(target_) == before);
  SetRights(images, 0755);
  connection_.Execute(u"UPDATE Prodotti SET Pubblica=FALSE WHERE CodiceProdotto='A-1'"_qs);
  EXPECT_EQ(Publishing(1, target_), QString());
  EXPECT_FALSE(QFileInfo::exists(images + u"/p-a-1_400w.jpg"_qs));
}

TEST_F(TargetTest, WhereNothingCanBeWrittenBesideItIsMadeInside) {
  const QString parent = folder_.filePath(u"parent"_qs);
  const QDir site(parent + u"/site"_qs);
  QDir().mkpath(site.path());
  CopySkin();
  const Unprivileged nobody(folder_.path());
  SetRights(parent, 0555);
  EXPECT_EQ(Publishing(1, site.path()), QString());
  EXPECT_TRUE(site.exists(u"index.html"_qs));
  EXPECT_EQ(site.entryList({u".*"_qs}, QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot), QStringList());
  SetRights(parent, 0755);
}

TEST_F(TargetTest, ASecondPublisherIsTold) {
  QDir().mkpath(target_);
  {
    files::FolderLock first;
    ASSERT_TRUE(first.TakeAlone(target_, 0));
    EXPECT_TRUE(Publishing(1, target_).contains(u"Wait for the end"));
  }
  EXPECT_EQ(Publishing(1, target_), QString());
}

// Another name of the same file is what a file system without letter case shows.
TEST_F(TargetTest, AFileOfOtherLetterCaseIsNotTakenForSomebodyElses) {
  ChangeSkin(u"assets/Logo.svg"_qs, "<svg/>");
  ASSERT_EQ(Publishing(1, target_), QString());
  const QString assets = target_ + u"/assets/"_qs;
  ASSERT_EQ(link(qPrintable(assets + u"Logo.svg"), qPrintable(assets + u"logo.svg")), 0);
  ASSERT_EQ(link(qPrintable(ManifestFile()), qPrintable(target_ + u"/VORLINA-MANIFEST.TXT"_qs)), 0);
  ASSERT_TRUE(QFile::rename(skin_ + u"/assets/Logo.svg"_qs, skin_ + u"/assets/logo.svg"_qs));
  EXPECT_EQ(Publishing(1, target_), QString());
  const auto list = publishing::Manifest::OfFolder(target_);
  EXPECT_TRUE(list.isKept && list.entries.contains(u"assets/logo.svg"_qs));
  EXPECT_FALSE(list.entries.contains(u"assets/Logo.svg"_qs));
  EXPECT_EQ(ContentOf(assets + u"logo.svg"), "<svg/>");
}

TEST_F(TargetTest, FilesOfZerosAreMadeAgain) {
  ASSERT_EQ(Publishing(1, target_), QString());
  const auto before = Files(target_);
  for (const QString& name : {u"/p-b-1.html"_qs, u"/images/p-a-1_400w.jpg"_qs}) {
    QFile file(target_ + name);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QDateTime time = file.fileTime(QFileDevice::FileModificationTime);
    file.write(QByteArray(file.size(), '\0'));
    file.setFileTime(time, QFileDevice::FileModificationTime);
  }
  EXPECT_EQ(Publishing(1, target_), QString());
  EXPECT_TRUE(Files(target_) == before);
}

TEST_F(TargetTest, AnExceptionLeavesNoThreadBehind) {
  const SiteProgress progress([](const QString& step) {
    return step.startsWith(u"Writing") ? throw std::runtime_error("enough") : true;
  });
  EXPECT_EQ(Publishing(1, target_, nullptr, progress), u"enough"_qs);
  EXPECT_FALSE(QFileInfo::exists(target_));
  const auto failing = [](std::size_t i) {
    if (i == 5) throw std::runtime_error("five");
  };
  EXPECT_THROW(publishing::DoTogether(
                   100, [&]() -> publishing::Work { return failing; }, [](int) { return true; }),
               std::runtime_error);
}
