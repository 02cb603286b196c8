#include "Scenes.h"

#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPointer>
#include <QProgressDialog>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolBar>
#include <QTreeWidget>

#include "Stage.h"
#include "base/Error.h"
#include "catalogs/frmNewCatalog.h"
#include "grid/DataGrid.h"
#include "products/frmEditCatalog.h"
#include "products/frmProduct.h"
#include "publish/frmPublish.h"
#include "publish/frmPublished.h"
#include "shell/frmCatalogs.h"
#include "support/Language.h"

namespace vorlina {
namespace {

constexpr QSize FilmSize(1000, 640);
constexpr QSize MainSize(820, 500);
constexpr QSize GridSize(960, 580);
constexpr QPoint MainCorner(80, 50);
constexpr QPoint GridCorner(18, 14);

template <class T>
T& Find(const QWidget& window, const QString& name = {}) {
  T* found = window.findChild<T*>(name);
  if (found == nullptr) throw Error(u"%1 has no %2"_qs.arg(window.objectName(), name));
  return *found;
}

QWidget& ButtonOf(const QWidget& window, const QString& command) {
  return *Find<QToolBar>(window).widgetForAction(&Find<QAction>(window, command));
}

void Press(QWidget& window, int key) {
  QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
  QCoreApplication::sendEvent(&window, &event);
}

// The first sample catalog speaks Italian, the second one English.
void FilmCatalogs(Stage& stage, frmCatalogs& catalogs) {
  catalogs.resize(MainSize);
  stage.Put(catalogs, MainCorner);
  auto& list = Find<QListWidget>(catalogs, u"LstWCatalogs"_qs);
  list.setCurrentRow(Language == u"Italian" ? 0 : 1);
  stage.Take();
  QRect entries;
  for (int row = 0; row < list.count(); ++row) entries |= list.visualItemRect(list.item(row));
  stage.Scene(u"catalogs"_qs, *list.viewport(), entries);
}

void FilmWizard(Stage& stage, const frmCatalogs& catalogs) {
  frmNewCatalog wizard;
  wizard.ConnectionText = catalogs.cnnCatalog.ConnectionText();
  wizard.LoadForm();
  auto& name = Find<QLineEdit>(wizard, u"txtCatalogName"_qs);
  name.setText(Language == u"Italian" ? u"Ceramiche 2026"_qs : u"Ceramics 2026"_qs);
  stage.PutInMiddle(wizard);
  stage.Take();
  stage.Scene(u"new"_qs, name, {}, true);
  stage.Clear();
}

void FilmGrid(Stage& stage, frmEditCatalog& window) {
  window.resize(GridSize);
  stage.Put(window, GridCorner);
  auto& grid = Find<DataGrid>(window, u"grdProducts"_qs);
  stage.Take();
  stage.Scene(u"grid"_qs, *grid.viewport());
  grid.GoTo(2, u"Descrizione"_qs);
  Press(grid, Qt::Key_F2);
  stage.Take();
  const QModelIndex cell = grid.Rows().index(2, grid.Rows().ColumnOf(u"Descrizione"_qs));
  stage.Scene(u"edit"_qs, *grid.viewport(), grid.visualRect(cell), true);
  grid.Rows().Revert();
  Press(grid, Qt::Key_Escape);
}

void FilmRows(Stage& stage, const frmEditCatalog& window) {
  auto& grid = Find<DataGrid>(window, u"grdProducts"_qs);
  grid.GoTo(2, u"Codice"_qs);
  stage.Take();
  stage.Scene(u"import"_qs, ButtonOf(window, u"cmdImporta"_qs));
  const QHeaderView& strip = *grid.verticalHeader();
  const QRect row(0, strip.sectionViewportPosition(2), strip.width(), strip.sectionSize(2));
  stage.Scene(u"order"_qs, *strip.viewport(), row, true);
  const QRect cell = grid.visualRect(grid.Rows().index(2, grid.Rows().ColumnOf(u"Immagine"_qs)));
  Q_EMIT grid.CellPressed(2, u"Immagine"_qs, Qt::LeftButton, cell.center() + grid.viewport()->pos());
  stage.Take();
  stage.Scene(u"picture"_qs, *grid.viewport(), cell, true);
  grid.GoTo(4, u"Codice"_qs);
}

void FilmCard(Stage& stage, const frmEditCatalog& window) {
  Find<QAction>(window, u"cmdEdit"_qs).trigger();
  auto& card = Find<frmProduct>(window);
  stage.PutInMiddle(card);
  stage.Take();
  stage.Scene(u"card"_qs, *card.centralWidget());
  card.Salvato = true;
  card.close();
  stage.Clear();
}

// Goes through the windows of a publication, and films the last one.
class Publication {
 public:
  Publication(Stage& stage, QString folder) : stage_(stage), folder_(std::move(folder)) {
    QObject::connect(&watch_, &QTimer::timeout, &watch_, [this] { Look(); });
    watch_.start(10);
  }

 private:
  void Look() {
    QWidget* window = QApplication::activeModalWidget();
    if (window == nullptr || window == seen_ || qobject_cast<QProgressDialog*>(window) != nullptr) return;
    seen_ = window;
    auto& target = Find<QLineEdit>(*window, u"txtTarget"_qs);
    if (qobject_cast<frmPublish*>(window) != nullptr) {
      target.setText(folder_);
      return Find<QPushButton>(*window, u"cmdPublish"_qs).click();
    }
    // Not where the film is made.
    target.setText(Language == u"Italian" ? u"/home/anna/Sito"_qs : u"/home/anna/Website"_qs);
    stage_.PutInMiddle(*window);
    stage_.Take();
    stage_.Scene(u"site"_qs, Find<QPushButton>(*window, u"cmdOpen"_qs));
    window->close();
  }

  Stage& stage_;
  QString folder_;
  QTimer watch_;
  QPointer<QWidget> seen_;
};

void FilmPublishing(Stage& stage, frmCatalogs& catalogs) {
  const QTemporaryDir place;
  stage.Put(catalogs, MainCorner);
  auto& publish = Find<QAction>(catalogs, u"cmdPublish"_qs);
  publish.trigger();
  auto& plugins = Find<QTreeWidget>(catalogs, u"lstPlugIns"_qs);
  Q_EMIT plugins.itemClicked(plugins.topLevelItem(0), 0);
  stage.Take();
  stage.Scene(u"publish"_qs, *plugins.viewport(), plugins.visualItemRect(plugins.topLevelItem(0)), true);
  const Publication publication(stage, place.path());
  publish.trigger();
  stage.Clear();
}

void FilmHelp(Stage& stage, frmCatalogs& catalogs) {
  const QWidget& button = ButtonOf(catalogs, u"cmdHelp"_qs);
  stage.Put(catalogs, MainCorner);
  auto& menu = Find<QMenu>(catalogs, u"mnuHelp"_qs);
  const QPoint below = button.mapTo(&catalogs, button.rect().bottomLeft());
  stage.Put(menu, MainCorner + below + QPoint(1, 28), false);
  stage.Take();
  stage.Scene(u"help"_qs, menu);
  menu.hide();
}

}  // namespace

TourFilm FilmTour() {
  TourFilm film;
  film.size = FilmSize;
  Stage stage(film);
  frmCatalogs catalogs;
  catalogs.LoadForm();
  catalogs.ListCatalog();
  FilmCatalogs(stage, catalogs);
  stage.Clear();
  FilmWizard(stage, catalogs);
  Find<QPushButton>(catalogs, u"Edit"_qs).click();
  auto& window = Find<frmEditCatalog>(catalogs);
  FilmGrid(stage, window);
  FilmRows(stage, window);
  FilmCard(stage, window);
  window.close();
  FilmPublishing(stage, catalogs);
  FilmHelp(stage, catalogs);
  return film;
}

}  // namespace vorlina
