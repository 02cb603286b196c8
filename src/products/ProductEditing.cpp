#include "products/ProductEditing.h"

#include <QLoggingCategory>
#include <QTimer>

#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Language.h"
#include "base/Messages.h"
#include "images/ImagePipeline.h"
#include "products/CellRules.h"
#include "products/FilterValues.h"
#include "products/NewCode.h"
#include "products/ProductCode.h"
#include "products/PublicationOrder.h"
#include "publish/ExtensionManager.h"
#include "store/Connection.h"
#include "store/LockPatience.h"
#include "store/RowErrors.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(products, "vorlina.products", QtInfoMsg)

constexpr int RetryMilliseconds = 2000;

}  // namespace

ProductEditing::ProductEditing(RecordsetModel& rows, QWidget* owner) : rows_(rows), owner_(owner) {
  rows.OnCellChanging = [this](CellChange& change) { CheckCell(change); };
  rows.OnRowWriting = [this](int row, qint64 IDProdotto, bool added) { WriteRow(row, IDProdotto, added); };
  rows.OnRowsDeleting = [this](int) { return AskToDelete(); };
  rows.OnRowDeleting = [this](qint64 bookmark) { DeleteProduct(bookmark); };
  rows.OnNotInList = [this](int column, const QString& text) { return AddFilterValue(column, text); };
  connect(&rows, &RecordsetModel::RowInserting, this, &ProductEditing::OfferCode);
  const auto offerAgain = [this] {
    try {
      const LockPatience patience;
      OfferDefaults();
    } catch (const Error& error) {
      // What was done is done. A new row asks for its code again when it is begun.
      qCDebug(products) << "no defaults" << error.Description();
    }
  };
  connect(&rows, &RecordsetModel::RowInserted, this, offerAgain);
  connect(&rows, &RecordsetModel::RowsDeleted, this, offerAgain);
  connect(&rows, &RecordsetModel::RowChanged, this, &ProductEditing::FinishRow);
  connect(&rows, &RecordsetModel::Failed, this, [this] {
    codeChange_.reset();
    deleting_.reset();
  });
  connect(&rows, &RecordsetModel::RowsDeleted, this, [this] {
    RemoveUnnamedPictures(std::exchange(deletedPictures_, {}), *connection_);
    deleting_.reset();
  });
}

void ProductEditing::SetCatalog(int IDCatalogo, Connection& connection) {
  IDCatalogo_ = IDCatalogo;
  connection_ = &connection;
}

void ProductEditing::OfferCode() {
  rows_.SetDefaultValue(rows_.Column(ProductColumn::Codice).key, NuovoCodice(IDCatalogo_, *connection_));
}

// A new row asks for its code again when it is begun.
void ProductEditing::RefreshCode() {
  try {
    const LockPatience none(0);
    OfferCode();
  } catch (const LockedError& error) {
    qCDebug(products) << "no code" << error.Description();
  }
}

void ProductEditing::OfferDefaults() {
  OfferCode();
  rows_.SetDefaultValue(rows_.Column(ProductColumn::Ordine).key, NuovoOrdine(IDCatalogo_, *connection_));
}

void ProductEditing::CheckCell(CellChange& change) {
  const GridColumn& column = rows_.Column(change.column);
  const CellVerdict verdict =
      vorlina::CheckCell(column.key, change.newValue, column.kind == ColumnKind::Lookup);
  change.cancel = Refuses(verdict);
  change.newValue = verdict.value;
}

// Tells what is refused.
bool ProductEditing::Refuses(const CellVerdict& verdict) {
  for (const QString& refusal : verdict.refusals) Q_EMIT Refused(refusal);
  return !verdict.refusals.isEmpty();
}

// Inside the row's transaction: its marks and its pictures are written with it, or not at all.
void ProductEditing::WriteRow(int row, qint64 IDProdotto, bool added) {
  const QString code = NullToEmpty(rows_.Value(row, ProductColumn::Codice));
  const QString former = added ? QString() : NullToEmpty(rows_.FormerValue(ProductColumn::Codice));
  if (former != code) RequireFreeCode(IDCatalogo_, code, IDProdotto, *connection_);
  if (!MarkProductChanged(IDCatalogo_, code, *connection_))
    QMetaObject::invokeMethod(
        this, [this] { TellFaultyExtensions(owner_); }, Qt::QueuedConnection);
  if (added || former == code) return;
  codeChange_ = std::make_unique<CodeChange>(IDCatalogo_, former, code, *connection_);
  codeChange_->CopyPictures();
}

void ProductEditing::FinishRow() {
  if (codeChange_ != nullptr) codeChange_->Finish();
  codeChange_.reset();
}

bool ProductEditing::AskToDelete() {
  Messaggio = ByLanguage(
      u"Eliminare gli articoli selezionati e le immagini ad essi relative?\r\n"
      "L'operazione non potrà essere annullata.\r\n"
      "Procedere con l'eliminazione?"_qs,
      u"Do you want to delete selected products and their images?\r\n"
      "Continue?"_qs);
  if (!TheDialogs().Ask(owner_, Messaggio, BoxStyle::QuestionNoFirst)) return false;
  deletedPictures_ = {};
  deleting_.emplace();
  return true;
}

// The files go when the rows are gone: a deletion that fails loses nothing.
void ProductEditing::DeleteProduct(qint64 IDProdotto) {
  Rows product(*connection_, u"SELECT CodiceProdotto FROM Prodotti WHERE IDProdotto=?"_qs, {IDProdotto});
  if (!product.Next()) return;
  const PictureFiles files = ProductImageFiles(product.Value(0).toString(), IDCatalogo_, *connection_);
  deletedPictures_.main += files.main;
  deletedPictures_.others += files.others;
}

bool ProductEditing::AddFilterValue(int column, const QString& text) {
  try {
    // Another window may have added it meanwhile.
    OfferFilterValues(column);
    if (rows_.Column(column).lookup.ValueOf(text)) return true;
    if (Refuses(vorlina::CheckCell(rows_.Column(column).key, text, true))) return false;
    if (!TheDialogs().Ask(owner_, NumberedText(BaseConferma + 1) + u": "_qs + text)) return false;
    if (text.contains(u'"')) {
      TheDialogs().Message(owner_,
                           ByLanguage(u"Non è possibile inserire il carattere \", sostituirlo con '"_qs,
                                      u"You can't insert \" character, replace it with '"_qs),
                           BoxStyle::Information);
      return false;
    }
    vorlina::AddFilterValue(IDCatalogo_, column - ProductColumn::IDFiltro1 + 1, text, *connection_);
    OfferFilterValues(column);
    return true;
  } catch (const std::exception& error) {
    TheDialogs().Message(owner_,
                         ByLanguage(u"Errore durante l'inserimento del nuovo valore per il filtro. "_qs,
                                    u"Error inserting a new value for the filter. "_qs) +
                             DescriptionOf(error),
                         BoxStyle::Stop);
    return false;
  }
}

void ProductEditing::RefreshFilterValues() {
  try {
    const LockPatience none(0);
    for (int column = ProductColumn::IDFiltro1; column < ProductColumn::Pubblica; ++column)
      if (column < rows_.columnCount() && rows_.Column(column).kind == ColumnKind::Lookup)
        OfferFilterValues(column);
  } catch (const LockedError&) {
    QTimer::singleShot(RetryMilliseconds, this, &ProductEditing::RefreshFilterValues);
  } catch (const Error& error) {
    qCDebug(products) << "filter values not read" << error.Description();
  }
}

void ProductEditing::OfferFilterValues(int column) {
  const int filter = column - ProductColumn::IDFiltro1 + 1;
  Lookup values = FilterValues(IDCatalogo_, filter, *connection_);
  if (values.Items() != rows_.Column(column).lookup.Items())
    rows_.SetLookup(rows_.Column(column).key, std::move(values));
}

}  // namespace vorlina
