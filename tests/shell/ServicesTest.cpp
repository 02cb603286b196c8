// About, the system information, the tour, and what the first start and an update do with the main window.
#include <QAction>
#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include "base/SafeFile.h"
#include "base/Settings.h"
#include "grid/DataGrid.h"
#include "products/frmEditCatalog.h"
#include "shell/frmCatalogs.h"
#include "support/CatalogFixture.h"
#include "support/ScriptedDialogs.h"
#include "support/SystemInformation.h"
#include "support/WidgetTour.h"
#include "support/frmAbout.h"
#include "support/frmSystemInfo.h"
#include "support/frmTour.h"

using namespace vorlina;

namespace {

class Services : public StoreFixture {
 protected:
  Services() {
    SaveSetting(ApplicationTitle(), u"Plugins"_qs, u"Plugins"_qs, QString());
    SaveSetting(ApplicationTitle(), u"Riservati"_qs, u"FirstRun"_qs, u"False"_qs);
    connection_.Execute(u"INSERT INTO Cataloghi (IDCatalogo,NomeCatalogo) VALUES (109,'Lamps')"_qs);
    QFile::link(QStringLiteral(TEST_PLUGINS), AppFile(u"PubWiz"_qs));
  }
  static QString FirstRun() { return GetSetting(ApplicationTitle(), u"Riservati"_qs, u"FirstRun"_qs, {}); }

  ScriptedDialogs dialogs_;
};

TourPicture Picture(const QColor& colour, int base = -1) {
  QImage image(8, 8, QImage::Format_RGB32);
  image.fill(colour);
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "PNG");
  return {buffer.data(), base, {}};
}

template <class T>
T& Find(const QWidget& window, const QString& name = {}) {
  T* found = window.findChild<T*>(name);
  if (found == nullptr) throw std::runtime_error("no " + name.toStdString());
  return *found;
}

}  // namespace

// It comes before the list is there, once; what fails in it keeps nothing from being saved.
TEST_F(Services, TheFirstStartShowsTheTourOnce) {
  for (const auto& [stored, shown] : {std::pair{u"True"_qs, 1}, {u"true"_qs, 0}, {u"False"_qs, 0}}) {
    SaveSetting(ApplicationTitle(), u"Riservati"_qs, u"FirstRun"_qs, stored);
    frmCatalogs window;
    int tours = 0;
    window.OnFirstRun = [&] {
      ++tours;
      EXPECT_TRUE(window.cnnCatalog.IsOpen());
      EXPECT_FALSE(window.rsCataloghi.IsOpen());
      EXPECT_EQ(FirstRun(), u"True"_qs);
      throw Error(u"no tour"_qs);
    };
    if (shown > 0) dialogs_.ExpectMessage(u"Error: no tour"_qs, BoxStyle::Stop);
    window.LoadForm();
    EXPECT_EQ(tours, shown);
    EXPECT_EQ(FirstRun(), shown > 0 ? u"False"_qs : stored);
  }
}

// A row in edit is written before the program ends for it; one that is refused keeps all as it was.
TEST_F(Services, AnUpdateClosesTheWindowsFirst) {
  const QString updater = AppFile(u"VorlinaUpdaterEN"_qs);
  WriteFileSafely(updater, "#!/bin/sh\ntouch \"$0.started\"\n");
  QFile(updater).setPermissions(QFile::ReadOwner | QFile::ExeOwner);
  AddProduct(109, u"A"_qs);
  frmCatalogs window;
  window.LoadForm();
  window.ListCatalog();
  window.show();
  QSignalSpy closed(&window, &frmCatalogs::Closed);
  Find<QListWidget>(window, u"LstWCatalogs"_qs).setCurrentRow(0);
  Find<QAction>(window, u"cmdEdit"_qs).trigger();
  auto& rows = Find<DataGrid>(Find<frmEditCatalog>(window), u"grdProducts"_qs).Rows();
  Find<DataGrid>(window, u"grdProducts"_qs).GoTo(0, u"Codice"_qs);
  ASSERT_TRUE(rows.setData(rows.index(0, rows.ColumnOf(u"Codice"_qs)), u"B"_qs));
  connection_.Execute(
      u"CREATE TRIGGER Refuse BEFORE UPDATE ON Prodotti BEGIN SELECT RAISE(ABORT, 'refused'); END"_qs);
  dialogs_.ExpectMessage(u"refused. Press Esc to give up the change."_qs, BoxStyle::Stop);
  Find<QAction>(window, u"cmdAggiornamenti"_qs).trigger();
  EXPECT_EQ(closed.count(), 0);
  EXPECT_FALSE(QFile::exists(updater + u".started"_qs));
  connection_.Execute(u"DROP TRIGGER Refuse"_qs);
  Find<QAction>(window, u"cmdAggiornamenti"_qs).trigger();
  EXPECT_EQ(closed.count(), 1);
  EXPECT_EQ(One(u"CodiceProdotto"_qs, u"Prodotti"_qs), u"B"_qs);
  EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(updater + u".started"_qs); }));
}

TEST_F(Services, AboutLeadsToTheSystemInformation) {
  frmCatalogs window;
  window.LoadForm();
  window.show();
  for (int press = 0; press < 2; ++press) Find<QAction>(window, u"subAbout"_qs).trigger();
  ASSERT_EQ(window.findChildren<frmAbout*>().size(), 1);
  auto& about = Find<frmAbout>(window);
  EXPECT_EQ(about.windowTitle(), u"Info about Vorlina"_qs);
  EXPECT_FALSE(about.isModal());
  Find<QPushButton>(about, u"cmdSysInfo"_qs).click();
  Find<QPushButton>(Find<frmSystemInfo>(about), u"cmdCopy"_qs).click();
  const QString copied = QApplication::clipboard()->text();
  for (const QString& told : {Path(), u"Catalogs: 1"_qs, u"Test.Older: vorlina.IVorlinaPluginFactory/0"_qs,
                              QString::fromLatin1(qVersion()), u"libjpeg-turbo 2"_qs})
    EXPECT_TRUE(copied.contains(told)) << told << " in " << copied;
  connection_.Close();
  EXPECT_TRUE(AsText(SystemInformation(connection_, {}), {}).contains(u"State: is not open"));

  frmAbout broken(window, []() -> std::vector<InformationGroup> { throw Error(u"gone"_qs); });
  dialogs_.ExpectMessage(u"System info aren't available at this moment."_qs);
  Find<QPushButton>(broken, u"cmdSysInfo"_qs).click();
}

TEST_F(Services, TheTourIsWalkedThroughByKeys) {
  const QString path = AppFile(u"Tour.film"_qs);
  TourFilm film{{80, 60}, {Picture(Qt::red), Picture(Qt::blue, 0)}, {}};
  film.scenes = {{u"catalogs"_qs, 0, {1, 2}, {3, 4, 5, 6}, true}, {u"grid"_qs, 1, {7, 8}, {}, false}};
  WriteTour(path, {{u"Italian"_qs, TourFilm{{8, 6}, {}, {}}}, {u"English"_qs, film}});
  frmTour window;
  window.LoadForm();
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  auto& tour = Find<WidgetTour>(window, u"Tour"_qs);
  tour.SetPlaying(false);
  const QString first = TourCaption(u"catalogs"_qs);
  EXPECT_TRUE(first.startsWith(u"Here are the catalogs"));
  const QPoint corner = tour.rect().center() - QPoint(tour.height() / 3, tour.height() / 3);
  for (const auto& [key, scene, colour] : {std::tuple{Qt::Key_Left, 0, Qt::red},
                                           {Qt::Key_Right, 1, Qt::blue},
                                           {Qt::Key_Right, 1, Qt::blue},
                                           {Qt::Key_Left, 0, Qt::red}}) {
    QTest::keyClick(&window, key);
    EXPECT_EQ(tour.Current(), scene);
    EXPECT_EQ(Find<QLabel>(window, u"lblCaption"_qs).text(), scene == 0 ? first : TourCaption(u"grid"_qs));
    EXPECT_EQ(tour.grab().toImage().pixelColor(corner), QColor(colour));
  }
  tour.GoTo(1);
  QTest::keyClick(&Find<QPushButton>(window, u"cmdPause"_qs), Qt::Key_Space);
  EXPECT_TRUE(tour.IsPlaying());
  EXPECT_EQ(tour.Current(), 0) << "from the end it starts over";
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier, {}, true);
  QApplication::sendEvent(&window, &held);
  EXPECT_TRUE(window.isVisible());
  QTest::keyClick(&window, Qt::Key_Escape);
  EXPECT_FALSE(window.isVisible());
}

// Whatever the file is, the window opens, and nothing is told.
TEST_F(Services, WithoutAFilmTheTourIsEmpty) {
  const QString path = AppFile(u"Tour.film"_qs);
  WriteTour(path, {{u"Italian"_qs, {{80, 60}, {Picture(Qt::red)}, {{u"grid"_qs, 0, {}, {}, false}}}}});
  const QByteArray whole = ContentOf(path);
  // A picture that is not there, and one that is painted on itself.
  const TourFilm others[] = {{{80, 60}, {Picture(Qt::red)}, {{u"grid"_qs, 1, {}, {}, false}}},
                             {{80, 60}, {Picture(Qt::red, 0)}, {{u"grid"_qs, 0, {}, {}, false}}}};
  EXPECT_EQ(ReadTour(path, u"English"_qs).scenes.size(), 1U) << "one language is better than none";
  for (const QByteArray& content :
       {QByteArray(), whole.chopped(1), QByteArray(whole + '\0'), QByteArray("no film")}) {
    WriteFileSafely(path, content);
    EXPECT_TRUE(ReadTour(path, u"Italian"_qs).IsEmpty());
  }
  for (const TourFilm& other : others) {
    WriteTour(path, {{u"Italian"_qs, other}});
    EXPECT_TRUE(ReadTour(path, u"Italian"_qs).IsEmpty());
  }
  frmTour window;
  window.LoadForm();
  window.show();
  EXPECT_EQ(Find<WidgetTour>(window, u"Tour"_qs).Count(), 0);
  EXPECT_FALSE(Find<QPushButton>(window, u"cmdPause"_qs).isEnabled());
  QTest::keyClick(&window, Qt::Key_Right);
}
