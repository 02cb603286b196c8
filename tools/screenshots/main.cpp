// Renders every window to PNG files: both languages, light and dark, at 100 and 200 per cent. It works on a
// copy of the delivered database and on settings of its own, and shows nothing on the screen.
//
// usage: vorlina-screenshots FOLDER
//        vorlina-screenshots FOLDER LANGUAGE NAMES [HELP]
//
// The latter takes those that the help shows: light, at the scale of the process, in one language ("it" or
// "en"), the names being the lines of a file; with a help file those of the help's viewer, else the others.
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QIcon>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPalette>
#include <QProcess>
#include <QPushButton>
#include <QStyleFactory>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeWidget>
#include <algorithm>
#include <cstdio>

#include "BackupBoxes.h"
#include "Boxes.h"
#include "HelpPictures.h"
#include "Photographer.h"
#include "PublishWindows.h"
#include "Sample.h"
#include "Services.h"
#include "base/AppPath.h"
#include "base/Dialogs.h"
#include "base/Settings.h"
#include "base/WidgetDialogs.h"
#include "catalogs/frmCatalog.h"
#include "catalogs/frmNewCatalog.h"
#include "grid/DataGrid.h"
#include "images/frmImage.h"
#include "images/frmImageViewer.h"
#include "products/WidgetImportOutcome.h"
#include "products/WidgetImportProgress.h"
#include "products/frmAdvancedEdit.h"
#include "products/frmEditCatalog.h"
#include "products/frmFilterData.h"
#include "products/frmImages.h"
#include "products/frmLeftOut.h"
#include "products/frmProduct.h"
#include "products/frmTechData.h"
#include "shell/frmCatalogs.h"
#include "store/Transaction.h"
#include "support/HelpFiles.h"
#include "support/Language.h"
#include "support/frmKeys.h"
#include "support/frmSplash.h"

using namespace vorlina;

namespace {

QPalette Palette(bool dark) {
  if (!dark) return QStyleFactory::create(u"Fusion"_qs)->standardPalette();
  QPalette palette(QColor(0x35, 0x35, 0x38), QColor(0x2a, 0x2a, 0x2d));
  palette.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x20));
  palette.setColor(QPalette::AlternateBase, QColor(0x26, 0x26, 0x29));
  palette.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xb0));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(0x80, 0x80, 0x84));
  palette.setColor(QPalette::Disabled, QPalette::WindowText, QColor(0x80, 0x80, 0x84));
  return palette;
}

void TakePreview(const Photographer& photographer) {
  frmImage preview;
  preview.Percorso = AppFile(u"Images/%1-%2.jpg"_qs.arg(TheSample().catalog).arg(TheSample().product));
  preview.LoadForm();
  photographer.TakeAtRest(preview, u"frmImage"_qs);
}

// The list of a product's pictures, as it opens beside the preview, and with a description being typed.
void TakeImages(const Photographer& photographer, Connection& connection) {
  frmImage preview;
  auto* images = new frmImages(&preview);
  images->IDCatalogo = TheSample().catalog;
  images->CodiceProdotto = TheSample().product;
  images->Connessione = &connection;
  images->Anteprima = &preview;
  images->LoadForm();
  photographer.TakeAtRest(*images, u"frmImages"_qs);
  auto* list = images->findChild<QListWidget*>(u"lstImages"_qs);
  list->setCurrentRow(list->count() - 1);
  Press(*list, Qt::Key_F2);
  photographer.Take(*images, u"frmImages-edit"_qs);
}

// The pager at its first page with a tile selected, and at its last one. It waits for its user, so that the
// pictures are taken from within.
void TakePager(const Photographer& photographer, Connection& connection) {
  frmImageViewer pager;
  pager.IDCatalogo = TheSample().catalog;
  pager.Connection = &connection;
  QTimer::singleShot(0, &pager, [&] {
    Press(pager, Qt::Key_Right);
    Press(pager, Qt::Key_Right);
    photographer.TakeAtRest(pager, u"frmImageViewer"_qs);
    Press(pager, Qt::Key_End);
    photographer.TakeAtRest(pager, u"frmImageViewer-last"_qs);
    pager.reject();
  });
  pager.ShowCatalog(u"ORDER BY OrdineTemp"_qs);
}

// The grid as it opens, sorted with a row in edit, its menus, and the preview of a picture.
void TakeGrid(const Photographer& photographer, frmCatalogs& catalogs) {
  catalogs.findChild<QPushButton*>(u"Edit"_qs)->click();
  auto* window = catalogs.findChild<frmEditCatalog*>();
  auto* grid = window->findChild<DataGrid*>(u"grdProducts"_qs);
  photographer.Take(*window, u"frmEditCatalog"_qs);
  grid->SetSort(u"Descrizione"_qs, SortDirection::Descending);
  grid->GoTo(3, grid->Rows().Column(5).key);
  Press(*grid, Qt::Key_F2);
  photographer.Take(*window, u"frmEditCatalog-edit"_qs);
  grid->Rows().Revert();
  window->findChild<QAction*>(u"mnuTrova"_qs)->trigger();
  auto* line = window->findChild<QLineEdit*>(u"txtFind"_qs);
  line->setText(TheSample().text);
  photographer.TakeAtRest(*window, u"frmEditCatalog-find"_qs);
  Press(*line, Qt::Key_Escape);
  grid->GoTo(4);
  const QPoint cell = grid->visualRect(grid->Rows().index(4, 16)).center();
  Q_EMIT grid->CellPressed(4, u"Immagine"_qs, Qt::LeftButton, cell + grid->viewport()->pos());
  photographer.TakeAtRest(*window, u"frmEditCatalog-preview"_qs);
  Q_EMIT grid->CellPressed(4, u"Codice"_qs, Qt::RightButton, cell);
  photographer.TakePopup(window->findChild<QMenu*>(u"mnuGriglia"_qs), u"frmEditCatalog-menu"_qs);
  Q_EMIT grid->HeaderPressed(u"Codice"_qs, Qt::RightButton, cell);
  photographer.TakePopup(window->findChild<QMenu*>(u"mnuColonna"_qs), u"frmEditCatalog-column"_qs);
  photographer.TakePopup(window->findChild<QMenu*>(u"mnuPubblica"_qs), u"frmEditCatalog-publish"_qs);
  photographer.TakePopup(window->findChild<QMenu*>(u"mnuAiuto"_qs), u"frmEditCatalog-help"_qs);
  window->findChild<QAction*>(u"mnuTasti"_qs)->trigger();
  photographer.Take(*window->findChild<frmKeys*>(), u"frmKeys"_qs);
  window->findChild<frmKeys*>()->close();
  grid->setFocus();
  grid->scrollToBottom();
  grid->GoTo(grid->Rows().RecordCount(), u"Codice"_qs);
  photographer.Take(*window, u"frmEditCatalog-new"_qs);
  window->close();
}

// An import in the middle, and what came of it: the frame and the status bar alone, without a folder.
void TakeImport(const Photographer& photographer, frmCatalogs& catalogs) {
  catalogs.findChild<QPushButton*>(u"Edit"_qs)->click();
  auto* window = catalogs.findChild<frmEditCatalog*>();
  window->show();
  auto* progress = dynamic_cast<WidgetImportProgress*>(window->findChild<QWidget*>(u"fmeProgress"_qs));
  progress->MostraProgresso(1, 1200, true);
  for (int done = 0; done < 500; ++done) progress->Advance();
  progress->ShowCount(500, 1200);
  QApplication::processEvents();
  const Sample sample = TheSample();
  progress->ShowMade(sample.picture, AppFile(u"Images/%1-%2.jpg"_qs.arg(sample.catalog).arg(sample.product)));
  photographer.TakeAtRest(*window, u"frmEditCatalog-import"_qs);
  progress->MostraProgresso(1, 1, false);
  auto* outcome = dynamic_cast<WidgetImportOutcome*>(window->findChild<QWidget*>(u"fmeImportati"_qs));
  outcome->Show(
      Texts::tr("Importati %1 prodotti").arg(QLocale().toString(1200)),
      {{sample.leftOut[0], Texts::tr("il nome non finisce in .jpg: per importare il file va rinominato")},
       {sample.leftOut[1], Texts::tr("non è un'immagine 'jpg'")}});
  photographer.Take(*window, u"frmEditCatalog-imported"_qs);
  window->findChild<QPushButton*>(u"cmdEsclusi"_qs)->click();
  photographer.Take(*window->findChild<frmLeftOut*>(), u"frmLeftOut"_qs);
  window->close();
}

void Write(Connection& connection, const QString& sql) {
  Transaction transaction(connection);
  connection.Execute(sql);
  transaction.Commit();
}

// The card of a product with a picture, a new one's and the mask of a search.
void TakeCard(const Photographer& photographer, frmCatalogs& catalogs) {
  catalogs.findChild<QPushButton*>(u"Edit"_qs)->click();
  auto* window = catalogs.findChild<frmEditCatalog*>();
  auto* grid = window->findChild<DataGrid*>(u"grdProducts"_qs);
  const auto open = [window](const QString& command) {
    window->findChild<QAction*>(command)->trigger();
    return window->findChild<frmProduct*>();
  };
  grid->GoTo(4);
  frmProduct* card = open(u"cmdEdit"_qs);
  photographer.TakeAtRest(*card, u"frmProduct"_qs);
  photographer.TakePopup(card->findChild<QMenu*>(u"mnuImage"_qs), u"frmProduct-image"_qs);
  auto* combo = card->findChild<QComboBox*>(u"cmbFilter_2"_qs);
  combo->showPopup();
  photographer.TakePopup(combo->view()->window(), u"frmProduct-list"_qs);
  combo->hidePopup();
  card->SetState(frmProduct::New);
  photographer.Take(*card, u"frmProduct-new"_qs);
  card->Salvato = true;
  card->close();
  card = open(u"cmdSearch"_qs);
  card->findChild<QLineEdit*>(u"txtCode"_qs)->setText(TheSample().code);
  photographer.Take(*card, u"frmProduct-search"_qs);
  card->findChild<QAction*>(u"cmdFind"_qs)->trigger();
  photographer.Take(*window, u"frmEditCatalog-search"_qs);
  window->close();
}

// The four tabs of a catalog's properties. The window goes without its question.
void TakeProperties(const Photographer& photographer, frmCatalogs& catalogs) {
  catalogs.findChild<QPushButton*>(u"Edit"_qs)->click();
  auto* window = catalogs.findChild<frmEditCatalog*>();
  window->findChild<QAction*>(u"cmdProperties"_qs)->trigger();
  auto* form = window->findChild<frmCatalog*>();
  auto* tabs = form->findChild<QTabWidget*>(u"tbsCatalogo"_qs);
  form->findChild<QLineEdit*>(u"txtLogo"_qs)->setText(TheSample().logo);  // not where the program is built
  for (int tab = 0; tab < tabs->count(); ++tab) {
    tabs->setCurrentIndex(tab);
    photographer.Take(*form, u"frmCatalog-%1"_qs.arg(tab + 1));
  }
  delete form;
  window->close();
}

// A catalog without products and without names.
void TakeEmptyGrid(const Photographer& photographer, frmCatalogs& catalogs) {
  Write(catalogs.cnnCatalog, u"INSERT INTO Cataloghi (NomeCatalogo) VALUES ('Ceramiche')"_qs);
  catalogs.ListCatalog();
  auto* list = catalogs.findChild<QListWidget*>(u"LstWCatalogs"_qs);
  list->setCurrentRow(list->count() - 1);
  catalogs.findChild<QPushButton*>(u"Edit"_qs)->click();
  auto* window = catalogs.findChild<frmEditCatalog*>();
  photographer.Take(*window, u"frmEditCatalog-empty"_qs);
  window->close();
  Write(catalogs.cnnCatalog, u"DELETE FROM Cataloghi WHERE NomeCatalogo='Ceramiche'"_qs);
  catalogs.ListCatalog();
  list->setCurrentRow(TheSample().row);
}

// The four steps of the wizard, filled in. It is left before it writes anything.
void TakeWizard(const Photographer& photographer, const Connection& connection) {
  frmNewCatalog wizard;
  wizard.ConnectionText = connection.ConnectionText();
  wizard.LoadForm();
  const Sample sample = TheSample();
  const std::pair<QString, QString> texts[] = {
      {u"txtCatalogName"_qs, sample.texts[0]}, {u"txtCatalogDescription"_qs, sample.texts[1]},
      {u"txtValue_0"_qs, sample.texts[2]},     {u"txtValue_1"_qs, sample.texts[3]},
      {u"txtFilter_0"_qs, sample.texts[4]},    {u"txtFilter_1"_qs, sample.texts[5]},
      {u"txtAzienda"_qs, sample.texts[6]},     {u"txtIndirizzo"_qs, sample.texts[7]},
      {u"txtCitta"_qs, sample.texts[8]},       {u"txtProvincia"_qs, sample.texts[9]},
      {u"txtCap"_qs, sample.texts[10]},        {u"txtStato"_qs, sample.texts[11]},
      {u"txtEmail"_qs, sample.texts[12]},      {u"txtLogo"_qs, sample.logo}};
  for (int step = 1; step <= 4; ++step) {
    for (const auto& [box, text] : texts) wizard.findChild<QLineEdit*>(box)->setText(text);
    photographer.Take(wizard, u"frmNewCatalog-%1"_qs.arg(step));
    wizard.findChild<QPushButton*>(u"cmdNav_0"_qs)->click();
  }
}

// The values of a filter, a sheet with a row in edit, and the editor for long texts.
void TakeProductData(const Photographer& photographer, Connection& connection) {
  frmFilterData values;
  values.IDCatalogo = TheSample().catalog;
  values.NumeroFiltro = u"1"_qs;
  values.NomeFiltro = TheSample().filter;
  values.Connessione = &connection;
  values.LoadForm();
  photographer.Take(values, u"frmFilterData"_qs);

  frmTechData sheet;
  sheet.IDCatalogo = TheSample().catalog;
  sheet.CodiceProdotto = TheSample().product;
  sheet.Connessione = &connection;
  sheet.LoadForm();
  photographer.Take(sheet, u"frmTechData"_qs);
  auto* grid = sheet.findChild<DataGrid*>(u"grdScheda"_qs);
  Press(*grid, Qt::Key_Return);
  photographer.Take(*sheet.findChild<frmAdvancedEdit*>(), u"frmAdvancedEdit"_qs);
  sheet.findChild<frmAdvancedEdit*>()->reject();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  Press(*grid, Qt::Key_F2);
  photographer.Take(sheet, u"frmTechData-edit"_qs);
  grid->Rows().Revert();
}

void SpeakLanguage(const QString& language) {
  SaveSetting(ApplicationTitle(), u"Generali"_qs, u"Language"_qs, language);
  SaveSetting(ApplicationTitle(), u"Plugins"_qs, u"Plugins"_qs, u"VLHTML.HTML"_qs);
  ChooseLanguage();
}

// With the catalog selected that the pictures show.
void ShowSample(frmCatalogs& catalogs) {
  catalogs.LoadForm();
  catalogs.ListCatalog();
  catalogs.findChild<QListWidget*>(u"LstWCatalogs"_qs)->setCurrentRow(TheSample().row);
}

void TakeAll(const Photographer& photographer) {
  frmSplash splash;
  splash.LoadSplash();
  photographer.Take(splash, u"frmSplash"_qs);

  frmCatalogs catalogs;
  ShowSample(catalogs);
  photographer.Take(catalogs, u"frmCatalogs"_qs);
  photographer.Take(*catalogs.findChild<QMenu*>(u"mnuHelp"_qs), u"frmCatalogs-help"_qs);
  catalogs.findChild<QMenu*>(u"mnuHelp"_qs)->hide();
  photographer.Take(*catalogs.findChild<QMenu*>(u"mnuPlugins"_qs), u"frmCatalogs-plugins"_qs);
  catalogs.findChild<QMenu*>(u"mnuPlugins"_qs)->hide();
  TakeServices(photographer, catalogs);
  TakeGrid(photographer, catalogs);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  TakeImport(photographer, catalogs);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  TakeCard(photographer, catalogs);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  TakeProperties(photographer, catalogs);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  TakeEmptyGrid(photographer, catalogs);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  catalogs.findChild<QPushButton*>(u"cmdPublish"_qs)->click();
  auto* plugins = catalogs.findChild<QTreeWidget*>(u"lstPlugIns"_qs);
  Q_EMIT plugins->itemClicked(plugins->topLevelItem(0), 0);
  photographer.Take(catalogs, u"frmCatalogs-publish"_qs);

  TakeProductData(photographer, catalogs.cnnCatalog);
  TakeWizard(photographer, catalogs.cnnCatalog);
  TakePreview(photographer);
  TakeImages(photographer, catalogs.cnnCatalog);
  TakePager(photographer, catalogs.cnnCatalog);

  frmCatalogs main;
  ShowSample(main);
  TakeBoxes(photographer, main);
  TakePublishing(photographer, main);
  TakeBackupBoxes(photographer, main);
}

// Each language light and dark.
void TakeLanguages(const QString& folder, const QString& scale) {
  for (const QString& language : {u"Italian"_qs, u"English"_qs}) {
    SpeakLanguage(language);
    for (const bool dark : {false, true}) {
      QApplication::setPalette(Palette(dark));
      const QString suffix = u"-"_qs + language.left(2).toLower() + (dark ? u"-dark-"_qs : u"-light-"_qs);
      const Photographer photographer(folder, suffix + scale);
      TakeAll(photographer);
      TakeHelp(photographer,
               QStringLiteral(VORLINA_DELIVERED) + u'/' + QFileInfo(HelpFile(language)).fileName(), language);
    }
  }
}

// Fails on a name that no window has.
int TakeForHelp(const QString& folder, const QString& code, const QString& list, const QString& help) {
  QFile file(list);
  if (!file.open(QIODevice::ReadOnly)) return 1;
  QStringList names = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
  names.removeIf([&](const QString& name) { return name.startsWith(u"frmHelp") == help.isEmpty(); });
  if (names.isEmpty()) return 0;
  const QString language = code == u"en" ? u"English"_qs : u"Italian"_qs;
  SpeakLanguage(language);
  QApplication::setPalette(Palette(false));
  const Photographer photographer(folder, {}, names);
  if (help.isEmpty())
    TakeAll(photographer);
  else
    TakeHelp(photographer, help, language);
  const auto missing = std::count_if(names.begin(), names.end(), [&](const QString& name) {
    const bool none = !QFile::exists(folder + u'/' + name + u".png"_qs);
    if (none) std::fprintf(stderr, "the help shows %s, which no window is\n", qPrintable(name));
    return none;
  });
  return missing == 0 ? 0 : 1;
}

// The scale is the process's own, so this program starts itself once for each.
int StartForEachScale(const QString& program, const QString& folder) {
  int failed = 0;
  for (const auto& [scale, name] : {std::pair{u"1"_qs, u"100"_qs}, std::pair{u"2"_qs, u"200"_qs}}) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QT_SCALE_FACTOR"_qs, scale);
    environment.insert(u"QT_QPA_PLATFORM"_qs, u"offscreen"_qs);
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(program, {folder, name});
    if (!process.waitForFinished(-1) || process.exitCode() != 0) ++failed;
  }
  return failed == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  const QString folder = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
  if (folder.isEmpty() || !QDir().mkpath(folder)) {
    std::fprintf(stderr, "usage: vorlina-screenshots FOLDER\n");
    return 2;
  }
  if (argc == 2) {
    QCoreApplication application(argc, argv);
    return StartForEachScale(QCoreApplication::applicationFilePath(), folder);
  }

  QApplication application(argc, argv);
  QApplication::setStyle(u"Fusion"_qs);
  QApplication::setApplicationName(u"Vorlina"_qs);
  QApplication::setOrganizationName(u"Norsel"_qs);
  QApplication::setApplicationVersion(QStringLiteral(VORLINA_VERSION));
  QCursor::setPos(-100, -100);  // else what lies under it shows as such
  WidgetDialogs dialogs;
  InstallDialogs(&dialogs);
  QTemporaryDir place;
  SetSettingsFolder(place.filePath(u"settings"_qs));
  // Without it every window would first show a box, and wait.
  if (!QFile::copy(QStringLiteral(VORLINA_DELIVERED "/Catalog.db"), place.filePath(u"Catalog.db"_qs))) {
    std::fprintf(stderr, "there is no %s: build the target \"application\" first\n",
                 VORLINA_DELIVERED "/Catalog.db");
    return 1;
  }
  QFile::link(QStringLiteral(VORLINA_APP_DIR "/PubWiz"), place.filePath(u"PubWiz"_qs));
  QFile::link(QStringLiteral(VORLINA_DELIVERED "/Images"), place.filePath(u"Images"_qs));
  SetAppPath(place.path());
  const QString what = QString::fromLocal8Bit(argv[2]);
  if (argc > 3) {
    const QString help = argc > 4 ? QString::fromLocal8Bit(argv[4]) : QString();
    return TakeForHelp(folder, what, QString::fromLocal8Bit(argv[3]), help);
  }
  TakeLanguages(folder, what);
  return 0;
}
