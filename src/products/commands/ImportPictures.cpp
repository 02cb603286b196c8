#include "products/commands/ImportPictures.h"

#include <QAction>
#include <QApplication>
#include <QScopedValueRollback>
#include <QStatusBar>
#include <vector>

#include "base/Dialogs.h"
#include "base/LastFolder.h"
#include "base/Texts.h"
#include "base/WaitCursor.h"
#include "catalogs/AutomaticBackup.h"
#include "products/Attempt.h"
#include "products/CatalogWork.h"
#include "products/PictureImport.h"
#include "products/WidgetImportOutcome.h"
#include "products/WidgetImportProgress.h"
#include "products/WidgetProductGrid.h"
#include "products/commands/GridContext.h"

namespace vorlina {
namespace {

// Milliseconds between two looks at whether the user is done with a row.
constexpr int FillInterval = 100;

// Milliseconds between two files at most, for what the user began meanwhile and is still at work, as a search
// in the rows is.
constexpr int ShareOfOthers = 50;

// One at a time in the whole program: a second one would run within the first, which stands still then.
bool anyRuns = false;

// What does not go together with an import: what would stop it for as long as its own window is up or keep
// the user from cancelling it, and what would publish a part of the folder.
class DisabledCommands {
 public:
  explicit DisabledCommands(const QWidget& window) {
    for (const QString& key : {u"cmdImporta"_qs, u"cmdImmagini"_qs, u"cmdPublish"_qs, u"cmdSearch"_qs})
      if (auto* action = window.findChild<QAction*>(key); action != nullptr && action->isEnabled())
        actions_.push_back(action);
    Enable(false);
  }
  ~DisabledCommands() { Enable(true); }
  DisabledCommands(const DisabledCommands&) = delete;
  DisabledCommands& operator=(const DisabledCommands&) = delete;

 private:
  void Enable(bool enabled) {
    for (QAction* action : actions_) action->setEnabled(enabled);
  }

  std::vector<QAction*> actions_;
};

// What the user is in the middle of would be cut off, and the rest of what is typed go elsewhere.
bool IsInHand(WidgetProductGrid& grid) {
  const QWidget* focus = grid.window()->focusWidget();
  const bool editor = focus != nullptr && grid.viewport()->isAncestorOf(focus);
  return editor || grid.Rows().EditRow() >= 0 || QApplication::mouseButtons() != Qt::NoButton ||
         QApplication::activePopupWidget() != nullptr || QApplication::activeModalWidget() != nullptr;
}

// The description of a file that is to blame names it.
QString FailureText(const PictureImport& import, const QString& description) {
  QStringList lines{description, {}};
  if (import.IsFileToBlame())
    lines += Texts::tr("Togliere il file dalla cartella, oppure salvarlo di nuovo come immagine JPEG.");
  else if (!import.Failed().isEmpty())
    lines += Texts::tr("L'importazione si è fermata al file %1.").arg(import.Failed());
  lines += ImportedText(import) + u'.';
  if (import.Imported() > 0) {
    lines.last() += u' ' + Texts::tr("Premere F5 per vederli.");
    lines += Texts::tr(
        "Prima di importare il resto spostare altrove le immagini già importate, cioè quel file e quelli "
        "che vengono prima in ordine di nome: diventerebbero prodotti una seconda volta.");
  }
  return lines.join(u"\r\n"_qs);
}

}  // namespace

ImportPictures::ImportPictures(GridContext& context, QStatusBar& status)
    : context_(context),
      fmeProgress_(new WidgetImportProgress(context.owner)),
      outcome_(new WidgetImportOutcome(&context.owner)) {
  status.addWidget(outcome_);
  outcome_->hide();
  fill_.setInterval(FillInterval);
  connect(&fill_, &QTimer::timeout, this, &ImportPictures::FillGrid);
}

ImportPictures::~ImportPictures() = default;

void ImportPictures::Import() {
  if (running_ || context_.busy || context_.connection == nullptr || !context_.grid.LeaveRow()) return;
  if (anyRuns)
    return TheDialogs().Message(&context_.owner,
                                Texts::tr("In un'altra finestra è in corso un'importazione."),
                                BoxStyle::Information);
  CatalogWork::RequireNone(context_.IDCatalogo);
  {
    const QScopedValueRollback<bool> running(running_, true);
    const QScopedValueRollback<bool> any(anyRuns, true);
    // The title has one language.
    const QString folder =
        FolderFor(purpose::Import, &context_.owner, u"Selezionare la cartella delle immagini"_qs);
    Attempt(&context_.owner, [&] {
      if (!folder.isEmpty() && !closing_) ImportFolder(folder);
    });
  }
  if (std::exchange(closing_, false)) Q_EMIT Finished();
}

void ImportPictures::ImportFolder(const QString& folder) {
  outcome_->Clear();
  PictureImport import(folder, context_.IDCatalogo, *context_.connection);
  if (import.Count() == 0) {
    TheDialogs().Message(&context_.owner, Texts::tr("Nessuna immagine 'jpg' nella cartella selezionata"),
                         BoxStyle::Information);
    return outcome_->Show(Texts::tr("Nessun prodotto importato"), import.PassedOver());
  }
  if (!KeepAutomaticBackupOrAsk(BackupReason::Import, &context_.owner)) return;
  QString ending;
  try {
    const CatalogWork work(context_.IDCatalogo, CatalogWork::Kind::Import);
    const DisabledCommands disabled(context_.owner);
    if (!Run(import)) ending = Texts::tr("Importazione annullata. ");
    fmeProgress_->MostraProgresso(1, 1, false);
    FillGrid();
  } catch (const std::exception& error) {
    TellFailure(import, DescriptionOf(error));
    ending = Texts::tr("Importazione interrotta. ");
  }
  outcome_->Show(ending + ImportedText(import), import.PassedOver());
}

// What comes in through the events finds no transaction open.
bool ImportPictures::Run(PictureImport& import) {
  fmeProgress_->MostraProgresso(1, import.Count(), true);
  const WaitCursor wait;
  QString inHand;
  const Progress progress = [&](qint64 done, qint64 total, const QString& file) {
    if (done > 0) {
      fmeProgress_->Advance();
      fmeProgress_->ShowMade(inHand, import.LastPicture());
    }
    inHand = file;
    fmeProgress_->ShowCount(int(done), int(total));
    if (done == total) return true;
    QCoreApplication::processEvents(QEventLoop::AllEvents, ShareOfOthers);
    return !fmeProgress_->AnnullaElaborazione;
  };
  return import.Run(progress, [] { QCoreApplication::processEvents(); });
}

// The grid is not filled anew.
void ImportPictures::TellFailure(const PictureImport& import, const QString& description) {
  TheDialogs().Message(&context_.owner, FailureText(import, description), BoxStyle::Stop);
  fmeProgress_->MostraProgresso(1, 1, false);
}

// Its new rows' codes are offered with it.
void ImportPictures::FillGrid() {
  fill_.stop();
  if (context_.connection == nullptr || closing_) return;
  if (context_.busy || IsInHand(context_.grid)) return fill_.start();
  context_.grid.LoadGrid(true);
}

bool ImportPictures::MayClose() {
  if (!running_) return true;
  closing_ = true;
  fmeProgress_->AnnullaElaborazione = true;
  return false;
}

void ImportFolder(GridContext& context) { context.import->Import(); }

}  // namespace vorlina
