#include "PublishWindows.h"

#include <QAction>
#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTreeView>

#include "Photographer.h"
#include "Sample.h"
#include "publish/frmHighlights.h"
#include "publish/frmPublish.h"
#include "publish/frmPublished.h"
#include "shell/frmCatalogs.h"
#include "store/Transaction.h"

namespace vorlina {
namespace {

// Behind the step that it is asked for in: what a click opens may wait for its user.
void ClickLater(QWidget& window, const QString& button) {
  auto* pressed = window.findChild<QPushButton*>(button);
  QMetaObject::invokeMethod(
      pressed, [pressed] { pressed->click(); }, Qt::QueuedConnection);
}

// Works the windows of one publication as they come up.
class Publication {
 public:
  Publication(const Photographer& photographer, QString folder, bool first)
      : photographer_(photographer), folder_(std::move(folder)), first_(first) {}

  void Work(QWidget& window) {
    if (auto* publish = qobject_cast<frmPublish*>(&window))
      Ask(*publish);
    else if (auto* highlights = qobject_cast<frmHighlights*>(&window))
      Choose(*highlights);
    else if (auto* published = qobject_cast<frmPublished*>(&window))
      Tell(*published);
    else if (auto* question = qobject_cast<QMessageBox*>(&window))
      Refuse(*question);
  }

 private:
  void Ask(frmPublish& window) {
    switch (step_++) {
      case 0:
        if (!first_) break;
        window.findChild<QLineEdit*>(u"txtTarget"_qs)->setText(TheSample().folder);
        photographer_.Take(window, u"frmPublish-1"_qs);
        window.findChild<QTabWidget*>(u"tbsPublish"_qs)->setCurrentIndex(1);
        window.findChild<QLineEdit*>(u"txtAddress"_qs)->setText(TheSample().address);
        window.findChild<QPlainTextEdit*>(u"txtHours"_qs)->setPlainText(TheSample().hours);
        return ClickLater(window, u"cmdHighlights"_qs);
      case 1:
        if (!first_) return window.reject();
        photographer_.Take(window, u"frmPublish-2"_qs);
        break;
      default:
        return window.reject();
    }
    window.findChild<QLineEdit*>(u"txtTarget"_qs)->setText(folder_);
    ClickLater(window, u"cmdPublish"_qs);
  }

  void Choose(frmHighlights& window) {
    auto* list = window.findChild<QTreeView*>(u"lstProducts"_qs);
    for (int row = 1; row < 8; row += 3)
      list->model()->setData(list->model()->index(row, 0), Qt::Checked, Qt::CheckStateRole);
    photographer_.Take(window, u"frmHighlights"_qs);
    window.findChild<QLineEdit*>(u"txtSearch"_qs)->setText(TheSample().text);
    photographer_.Take(window, u"frmHighlights-search"_qs);
    window.accept();
  }

  void Tell(frmPublished& window) {
    window.findChild<QLineEdit*>(u"txtTarget"_qs)->setText(TheSample().folder);
    photographer_.Take(window, u"frmPublished"_qs);
    window.accept();
  }

  void Refuse(QMessageBox& question) {
    photographer_.Take(question, u"box-publish-replace"_qs);
    question.reject();
  }

  const Photographer& photographer_;
  QString folder_;
  bool first_;
  int step_ = 0;
};

// Products with something to be told of.
void SpoilSome(Connection& connection) {
  Transaction transaction(connection);
  connection.Execute(u"DELETE FROM CExtension"_qs);
  connection.Execute(u"DELETE FROM Immagini WHERE IDCatalogo=?"_qs, {TheSample().catalog});
  connection.Execute(u"UPDATE Prodotti SET Immagine=NULL WHERE IDCatalogo=? AND OrdineTemp IN (3,7)"_qs,
                     {TheSample().catalog});
  connection.Execute(u"UPDATE Prodotti SET Descrizione=NULL WHERE IDCatalogo=? AND OrdineTemp=5"_qs,
                     {TheSample().catalog});
  transaction.Commit();
}

}  // namespace

// Two catalogs into one folder. The second is not published in the end.
void TakePublishing(const Photographer& photographer, frmCatalogs& catalogs) {
  const QTemporaryDir place;
  SpoilSome(catalogs.cnnCatalog);
  auto* list = catalogs.findChild<QListWidget*>(u"LstWCatalogs"_qs);
  for (const bool first : {true, false}) {
    list->setCurrentRow(first ? TheSample().row : 1 - TheSample().row);
    Publication publication(photographer, QDir::toNativeSeparators(place.path()), first);
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
      if (QWidget* window = QApplication::activeModalWidget()) publication.Work(*window);
    });
    watch.start(10);
    auto* publish = catalogs.findChild<QAction*>(u"cmdPublish"_qs);
    publish->trigger();
    publish->trigger();
    QApplication::processEvents();
  }
}

}  // namespace vorlina
