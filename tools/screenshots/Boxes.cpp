#include "Boxes.h"

#include <QAction>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QProgressDialog>
#include <QPushButton>
#include <QTemporaryDir>

#include "Photographer.h"
#include "Sample.h"
#include "base/AppPath.h"
#include "base/Dialogs.h"
#include "base/SafeFile.h"
#include "base/Texts.h"
#include "base/WidgetProgressBox.h"
#include "catalogs/frmCatalog.h"
#include "catalogs/frmNewCatalog.h"
#include "grid/DataGrid.h"
#include "products/frmEditCatalog.h"
#include "products/frmImages.h"
#include "products/frmProduct.h"
#include "publish/PluginPackage.h"
#include "shell/frmCatalogs.h"
#include "store/Transaction.h"

namespace vorlina {
namespace {

class Boxes {
 public:
  explicit Boxes(const Photographer& photographer) : photographer_(photographer) {}

  // Takes each box that comes up in a step and gives it up, so that nothing changes. With a folder the
  // choosers take that one, and what asks on the way to it is answered.
  void During(const QString& name, const std::function<void()>& step, const QString& folder = {}) const {
    QPointer<QWidget> seen;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
      QWidget* box = QApplication::activeModalWidget();
      if (box == nullptr || box == seen || qobject_cast<QProgressDialog*>(box) != nullptr) return;
      seen = box;
      const QString named = box->objectName().isEmpty() ? QString() : u'-' + box->objectName();
      photographer_.Take(*box, u"box-"_qs + name + named);
      Answer(*qobject_cast<QDialog*>(box), folder);
    });
    watch.start(10);
    step();
    QApplication::processEvents();
  }

 private:
  static void Answer(QDialog& box, const QString& folder) {
    auto* chooser = qobject_cast<QFileDialog*>(&box);
    if (chooser != nullptr && !folder.isEmpty()) {
      chooser->findChild<QLineEdit*>(u"fileNameEdit"_qs)->setText(folder);
      chooser->findChild<QDialogButtonBox*>(u"buttonBox"_qs)->button(QDialogButtonBox::Open)->click();
    } else {
      box.reject();
    }
  }

  const Photographer& photographer_;
};

void Trigger(const QWidget& window, const QString& command) {
  window.findChild<QAction*>(command)->trigger();
}

void TakeMainWindowsBoxes(const Photographer& photographer, frmCatalogs& catalogs) {
  const Boxes boxes(photographer);
  auto* list = catalogs.findChild<QListWidget*>(u"LstWCatalogs"_qs);
  list->setCurrentRow(TheSample().row);
  boxes.During(u"delete-catalog"_qs, [&] { Trigger(catalogs, u"cmdDelete"_qs); });
  boxes.During(u"clone"_qs, [&] { Trigger(catalogs, u"cmdDuplica"_qs); });
  WidgetProgressBox progress(&catalogs, list->currentItem()->text());
  progress.setMaximum(100);
  progress.setValue(40);
  photographer.Take(progress, u"box-progress"_qs);
  progress.close();
  boxes.During(u"rename"_qs, [&] {
    list->editItem(list->currentItem());
    auto* editor = list->findChild<QLineEdit*>();
    editor->clear();
    Press(*editor, Qt::Key_Return);
    QApplication::processEvents();
  });
  frmNewCatalog wizard;
  wizard.LoadForm();
  boxes.During(u"wizard"_qs, [&] { wizard.findChild<QPushButton*>(u"cmdNav_0"_qs)->click(); });
}

// A code that is there already, a value that is not there yet, and what is unsaved.
void TakeGridsBoxes(const Photographer& photographer, frmCatalogs& catalogs) {
  const Boxes boxes(photographer);
  Trigger(catalogs, u"cmdEdit"_qs);
  auto* window = catalogs.findChild<frmEditCatalog*>();
  auto* grid = window->findChild<DataGrid*>(u"grdProducts"_qs);
  const QString code = grid->Rows().index(0, grid->Rows().ColumnOf(u"Codice"_qs)).data().toString();
  grid->GoTo(1, u"Codice"_qs);
  Press(*grid, Qt::Key_F2);
  auto* editor = grid->viewport()->findChild<QLineEdit*>(u"editor"_qs);
  editor->selectAll();
  editor->insert(code);
  boxes.During(u"refused"_qs, [&] { grid->GoTo(2); });
  grid->Rows().Revert();
  Press(*grid, Qt::Key_Escape);
  boxes.During(u"delete-products"_qs, [&] { Trigger(*window, u"cmdDelete"_qs); });
  Trigger(*window, u"cmdEdit"_qs);
  auto* card = window->findChild<frmProduct*>();
  auto* combo = card->findChild<QComboBox*>(u"cmbFilter_2"_qs);
  combo->setFocus();
  combo->lineEdit()->selectAll();
  for (const QChar letter : TheSample().value) Press(*combo, 0, letter);
  boxes.During(u"new-value"_qs, [&] { Trigger(*card, u"cmdSave"_qs); });
  combo->setCurrentIndex(0);
  boxes.During(u"save"_qs, [&] { card->close(); });
  card->Salvato = true;
  card->close();
  window->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// What is unsaved in the properties, and, once that is to be saved, a filter that goes.
void TakePropertiesBoxes(const Photographer& photographer, Connection& connection) {
  const Boxes boxes(photographer);
  frmCatalog form;
  form.CatalogRs.Open({.table = u"Cataloghi"_qs, .where = u"IDCatalogo=%1"_qs.arg(TheSample().catalog)},
                      connection);
  form.Connessione = &connection;
  form.LoadForm();
  form.show();
  form.findChild<QLineEdit*>(u"txtNomeFiltro3"_qs)->clear();
  boxes.During(u"properties-save"_qs, [&] { form.close(); });
  form.MayWrite = [](bool) { return false; };
  boxes.During(u"properties-filter"_qs, [&] {
    QTimer::singleShot(0, &form, [] {
      qobject_cast<QMessageBox*>(QApplication::activeModalWidget())->button(QMessageBox::Yes)->click();
    });
    form.close();
  });
}

void TakePicturesBoxes(const Photographer& photographer, Connection& connection) {
  const Boxes boxes(photographer);
  frmImages images;
  images.IDCatalogo = TheSample().catalog;
  images.CodiceProdotto = TheSample().product;
  images.Connessione = &connection;
  images.LoadForm();
  images.show();
  boxes.During(u"delete-picture"_qs, [&] { Trigger(images, u"cmdDelete"_qs); });
  boxes.During(u"pictures"_qs, [&] { Trigger(images, u"cmdAdd"_qs); });
  boxes.During(u"description"_qs, [&] {
    TheDialogs().Input(&images, Texts::tr("Descrizione immagine"), Texts::tr("Aggiungi/Modifica image"), {});
  });
}

// Folders without a picture, and with a file that is none.
void TakeImportsBoxes(const Photographer& photographer, frmCatalogs& catalogs) {
  const QTemporaryDir place;
  const Boxes boxes(photographer);
  Trigger(catalogs, u"cmdEdit"_qs);
  auto* window = catalogs.findChild<frmEditCatalog*>();
  for (const QString& name : {u"empty"_qs, u"broken"_qs}) {
    const QString folder = place.filePath(name);
    QDir().mkpath(folder);
    if (name == u"broken") WriteFileSafely(folder + u'/' + TheSample().picture, "no picture");
    boxes.During(
        u"import-"_qs + name, [&] { Trigger(*window, u"cmdImporta"_qs); }, folder);
  }
  window->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void TakePluginsBoxes(const Photographer& photographer, frmCatalogs& catalogs) {
  const QTemporaryDir place;
  const Boxes boxes(photographer);
  const QString package = WritePackage(AppFile(u"PubWiz/VLHTML.HTML.so"_qs), QStringLiteral(VORLINA_VERSION),
                                       AppFile(u"PubWiz/VLHTML.HTML"_qs), place.path());
  boxes.During(
      u"package"_qs, [&] { Trigger(catalogs, u"mnuInstallPlugin"_qs); }, package);
  boxes.During(u"skins"_qs,
               [&] { catalogs.findChild<QMenu*>(u"mnuInstallaSkin"_qs)->actions().first()->trigger(); });
}

}  // namespace

void TakeBoxes(const Photographer& photographer, frmCatalogs& catalogs) {
  catalogs.show();
  TakeMainWindowsBoxes(photographer, catalogs);
  TakeGridsBoxes(photographer, catalogs);
  TakePropertiesBoxes(photographer, catalogs.cnnCatalog);
  TakePicturesBoxes(photographer, catalogs.cnnCatalog);
  TakeImportsBoxes(photographer, catalogs);
  TakePluginsBoxes(photographer, catalogs);
}

}  // namespace vorlina
