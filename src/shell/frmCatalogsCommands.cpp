// What the main window's commands do.
#include <QDesktopServices>
#include <QListWidget>
#include <QTreeWidget>
#include <QUrl>
#include <algorithm>

#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Language.h"
#include "base/Messages.h"
#include "base/WaitCursor.h"
#include "base/WidgetProgressBox.h"
#include "catalogs/CatalogNames.h"
#include "catalogs/CloneCatalog.h"
#include "catalogs/DeleteCatalog.h"
#include "catalogs/frmNewCatalog.h"
#include "products/frmEditCatalog.h"
#include "shell/CatalogCommands.h"
#include "shell/WidgetRenameDelegate.h"
#include "shell/frmCatalogs.h"
#include "ui_frmCatalogs.h"

namespace vorlina {
namespace {

const char16_t SupportAddress[] = u"support@vorlina.example";

}  // namespace

// A name that is being typed is stored before anything else begins. False where it was refused, which has
// been told.
bool frmCatalogs::EndRename() {
  rename_->Finish();
  return ApplyRename();
}

bool frmCatalogs::ApplyRename() {
  if (!newName_) return true;
  const NewName typed = *std::exchange(newName_, std::nullopt);
  if (typed.name.trimmed().isEmpty()) {
    TheDialogs().Message(
        this,
        ByLanguage(u"Inserire un nome valido per il catalogo"_qs, u"Insert a valid name for the catalog"_qs),
        BoxStyle::Information, u"Attenzione"_qs);
    return false;
  }
  try {
    RenameCatalog(cnnCatalog.ConnectionText(), typed.IDCatalogo, typed.name);
    const auto row = std::find(arrIDCataloghi.begin(), arrIDCataloghi.end(), typed.IDCatalogo);
    if (row != arrIDCataloghi.end())
      ui_->LstWCatalogs->item(int(row - arrIDCataloghi.begin()))->setText(typed.name);
    return true;
  } catch (const std::exception& error) {
    TheDialogs().Message(this, DescriptionOf(error), BoxStyle::Plain,
                         ByLanguage(u"Attenzione"_qs, u"Warning"_qs));
    return false;
  }
}

// A catalog without a name is left alone, as is a list in which none is selected.
void frmCatalogs::Delete_Click() {
  try {
    if (const QListWidgetItem* item = SelectedCatalog(); item != nullptr && !item->text().isEmpty()) {
      const int id = SelectedCatalogId();
      if (!TheDialogs().Ask(this, NumberedText(BaseConferma + 0), BoxStyle::QuestionNoFirst)) return;
      const WaitCursor wait;
      DeleteCatalog(id, cnnCatalog);
      blnListaModificata = true;
    }
  } catch (const std::exception& error) {
    ShowError(this, DescriptionOf(error));
    return;
  }
  ListCatalog();
}

void frmCatalogs::DuplicaCatalogo() {
  try {
    if (const QListWidgetItem* item = SelectedCatalog(); item != nullptr && !item->text().isEmpty()) {
      const int id = SelectedCatalogId();
      const QString name = item->text();  // the list may be made anew while the question stands
      Messaggio = ByLanguage(u"Duplicare il catalogo selezionato e le immagini ad esso relative?"_qs,
                             u"Do you want to clone selected catalog and its images?"_qs);
      if (!TheDialogs().Ask(this, Messaggio)) return;
      const QStringList warnings = CloneWithProgress(id, name);
      blnListaModificata = true;
      if (!warnings.isEmpty()) TheDialogs().Message(this, FirstLines(warnings), BoxStyle::Information);
    }
  } catch (const Stopped&) {
    // The user asked for it, and nothing of the copy is there.
  } catch (const std::exception& error) {
    TheDialogs().Message(
        this,
        ByLanguage(u"Impossibile duplicare il catalogo. "_qs, u"Impossible to clone the catalog. "_qs) +
            u"\r\n"_qs + DescriptionOf(error),
        BoxStyle::Stop);
    return;
  }
  ListCatalog();
}

// Few pictures take no time worth a box. Gives what the user should know of the copy.
QStringList frmCatalogs::CloneWithProgress(int id, const QString& name) {
  constexpr int Few = 100;
  const QString prefix = ByLanguage(u"Copia di "_qs, u"Copy of "_qs);
  CatalogClone clone(id, cnnCatalog);
  if (CountPictures(id, cnnCatalog) <= Few) {
    const WaitCursor wait;
    clone.DuplicaCatalogo(prefix, {});
    return clone.Warnings();
  }
  WidgetProgressBox box(this, name);
  clone.DuplicaCatalogo(prefix, box.Reporter());
  return clone.Warnings();
}

// Nothing begins in the middle of a clone: its box may be gone already while it still puts everything back.
// Nor while a plug-in publishes, whose box may not be there yet.
bool frmCatalogs::IsBusy() const {
  return objPlugin != nullptr || (cnnCatalog.IsOpen() && cnnCatalog.InTransaction());
}

void frmCatalogs::Run(const QString& key) {
  if (IsBusy() || !EndRename()) return;
  const auto handler = handlers_.find(key);
  if (handler != handlers_.end()) handler->second();
}

// There is one wizard at a time: pressing New again comes back to it.
void frmCatalogs::NewCatalogWizard() {
  if (wizard_ == nullptr || !wizard_->isVisible()) {
    wizard_ = new frmNewCatalog(this);
    wizard_->setAttribute(Qt::WA_DeleteOnClose);
    wizard_->ConnectionText = cnnCatalog.ConnectionText();
    connect(wizard_, &frmNewCatalog::EditWanted, this, [this](int id, const QString& caption) {
      ListCatalog();
      SelectNewest();
      EditCatalog(id, caption);
    });
    connect(wizard_, &frmNewCatalog::MainMenuWanted, this, &frmCatalogs::ShowCatalogs);
    connect(wizard_, &frmNewCatalog::Cancelled, this, &frmCatalogs::ComeToFront);
    connect(wizard_, &frmNewCatalog::AnotherWanted, this, &frmCatalogs::AnotherCatalog);
    wizard_->LoadForm();
    wizard_->show();
  }
  wizard_->activateWindow();
  blnListaModificata = true;
}

void frmCatalogs::EditSelected() {
  if (const QListWidgetItem* item = SelectedCatalog()) EditCatalog(SelectedCatalogId(), item->text());
}

// Several can be open at once, also on the same catalog; each has its own connection.
void frmCatalogs::EditCatalog(int id, const QString& caption) {
  const WaitCursor wait;
  try {
    auto window = std::make_unique<frmEditCatalog>(this);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->Connessione = std::make_unique<Connection>();
    window->Connessione->Open(cnnCatalog.ConnectionText());
    window->rsCatalogo.Open(rsCataloghi.Source(), *window->Connessione, CursorType::Keyset,
                            LockType::Optimistic);
    window->rsCatalogo.SetFilter(u"IDCatalogo"_qs, id);
    if (window->rsCatalogo.IsEOF()) throw CatalogGone();
    window->Plugins = plugins_;
    window->LoadForm();
    window->setWindowTitle(PlainTitle(caption));
    connect(window.get(), &frmEditCatalog::Closed, this, &frmCatalogs::ComeToFront);
    window.release()->show();
  } catch (const std::exception& error) {
    ShowError(this, DescriptionOf(error));
  }
}

// False where one has a row that cannot be written: it stays, and has told why.
bool frmCatalogs::CloseGridWindows() {
  for (frmEditCatalog* window : findChildren<frmEditCatalog*>(QString(), Qt::FindDirectChildrenOnly))
    if (window->isVisible() && !window->close()) return false;
  return true;
}

void frmCatalogs::ComeToFront() {
  show();
  activateWindow();
}

void frmCatalogs::ShowCatalogs() {
  ComeToFront();
  ListCatalog();
  SelectNewest();
}

void frmCatalogs::AnotherCatalog() {
  ListCatalog();
  SelectNewest();
  ui_->cmdNew->click();
}

// What the next command works on is then what was made last.
void frmCatalogs::SelectNewest() { ui_->LstWCatalogs->setCurrentRow(ui_->LstWCatalogs->count() - 1); }

// The first press shows the plug-ins, the second publishes with the one selected there.
void frmCatalogs::PressPublish() {
  if (ui_->LstWCatalogs->count() == 0)
    throw Error(
        EitherLanguage(u"Non c'è nessun catalogo da pubblicare"_qs, u"There is no catalog to publish"_qs));
  if (SelectedCatalog() != nullptr) ShowPublishPane(true);
  try {
    if (blnPannelloPubblica) {
      const QTreeWidgetItem* plugin = ui_->lstPlugIns->currentItem();
      if (plugin == nullptr || !plugin->isSelected())
        throw Error(EitherLanguage(u"Nessun filtro di pubblicazione è selezionato"_qs,
                                   u"No publishing filter is selected"_qs));
      if (!plugin->text(0).isEmpty()) {
        PublishSelected();
        ShowPublishPane(false);
        objPlugin.reset();
        blnPannelloPubblica = !blnPannelloPubblica;
        return;
      }
      TheDialogs().Message(this,
                           ByLanguage(u"Selezionare un filtro di pubblicazione per il catalogo"_qs,
                                      u"Select a publishing filter"_qs),
                           BoxStyle::Information);
    }
    blnPannelloPubblica = !blnPannelloPubblica;
  } catch (const std::exception& error) {
    objPlugin.reset();
    ShowError(this, DescriptionOf(error));
  }
}

void frmCatalogs::PublishSelected() {
  const int id = SelectedCatalogId();
  if (id == 0) throw Error(EitherLanguage(u"Nessun catalogo è selezionato"_qs, u"No catalog is selected"_qs));
  const QString identifier = ui_->lstPlugIns->currentItem()->data(0, KeyRole).toString();
  objPlugin = CreatePlugin(identifier);
  PublishCatalog(*objPlugin, cnnCatalog, id);
}

void frmCatalogs::ShowPublishPane(bool show) {
  ui_->fmPublish->setVisible(show);
  ui_->fmListCatalog->setVisible(!show);
  for (const int index : CatalogPaneButtons) {
    QAction* button = toolbar_[std::size_t(index) - 1];
    const bool usable = handlers_.contains(button->objectName()) || button == toolbar_.back();
    button->setEnabled(!show && usable);
  }
  QWidget* focus = show ? static_cast<QWidget*>(ui_->lstPlugIns) : ui_->LstWCatalogs;
  focus->setFocus();
}

void frmCatalogs::cmdIndietro_Click() {
  blnPannelloPubblica = false;
  ShowPublishPane(false);
}

void frmCatalogs::InstallSkinFor(const QString& identifier) {
  objPlugin = CreatePlugin(identifier);
  const std::unique_ptr<IVorlinaPlugin> plugin = std::move(objPlugin);
  QString skin;
  CallPlugin([&] { plugin->InstallSkin(skin); });
}

void frmCatalogs::MailSupport() { QDesktopServices::openUrl(QUrl(u"mailto:"_qs + Text(SupportAddress))); }

void frmCatalogs::PopUpPlugins() {
  const QWidget* button = ui_->tbr->widgetForAction(toolbar_[5]);
  mnuPlugins_->popup(button->mapToGlobal(QPoint(0, button->height())));
}

}  // namespace vorlina
