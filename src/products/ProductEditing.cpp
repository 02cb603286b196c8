#include "products/ProductEditing.h"

#include <QLoggingCategory>
#include <QTimer>

#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Texts.h"
#include "base/WaitCursor.h"
#include "products/CellRules.h"
#include "products/FilterValues.h"
#include "products/PublicationOrder.h"
#include "publish/ExtensionManager.h"
#include "store/Connection.h"
#include "store/LockPatience.h"
#include "store/RowErrors.h"
#include "support/Language.h"
#include "support/Messages.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(products, "vorlina.products", QtInfoMsg)

constexpr int RetryMilliseconds = 2000;

}  // namespace

ProductEditing::ProductEditing(RecordsetModel& rows, QWidget* owner) : rows_(rows), owner_(owner) {
  rows.OnCellChanging = [this](CellChange& change) { CheckCell(change); };
  rows.OnRowChecking = [this](int row) {
    RenewCode(row);
    return std::optional<RowRefusal>();
  };
  rows.OnRowWriting = [this](int row, qint64 product, bool added) {
    RequireFilterValues(row, added);
    const QString former = added ? QString() : NullToEmpty(rows_.FormerValue(ProductColumn::Codice));
    Products().Saved(product, former, ProductMarks::Both);
  };
  rows.OnRowsDeleting = [this](const std::vector<qint64>&) { return AskToDelete(); };
  rows.DeleteBy = [this](const std::vector<qint64>& products) {
    const WaitCursor wait;
    Products().Delete(products);
  };
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
}

void ProductEditing::SetCatalog(int IDCatalogo, Connection& connection) {
  IDCatalogo_ = IDCatalogo;
  connection_ = &connection;
}

void ProductEditing::OfferCode() {
  rows_.SetDefaultValue(rows_.Column(ProductColumn::Codice).key, Products().FreePictureCode());
}

// The code that a new row was offered may be another product's when it is written.
void ProductEditing::RenewCode(int row) {
  if (!rows_.IsAddNewRow(row)) return;
  const QString code = NullToEmpty(rows_.Value(row, ProductColumn::Codice));
  const auto offered = [this] { return rows_.Column(ProductColumn::Codice).defaultValue; };
  if (code != NullToEmpty(offered()) || !Products().IsCodeTaken(code)) return;
  OfferCode();
  rows_.setData(rows_.index(row, ProductColumn::Codice), offered());
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

// The box waits until the grid is done with the row.
ProductStore ProductEditing::Products() {
  return {IDCatalogo_, *connection_, [this] {
            QMetaObject::invokeMethod(
                this, [this] { TellFaultyExtensions(owner_); }, Qt::QueuedConnection);
          }};
}

bool ProductEditing::AskToDelete() {
  Messaggio = Texts::tr(
      "Eliminare gli articoli selezionati e le immagini ad essi relative?\r\n"
      "L'operazione non potrà essere annullata.\r\n"
      "Procedere con l'eliminazione?");
  return TheDialogs().Ask(owner_, Messaggio, BoxStyle::QuestionNoFirst);
}

// Another window may have deleted what the drop-down still offers.
void ProductEditing::RequireFilterValues(int row, bool added) const {
  for (int column = ProductColumn::IDFiltro1; column < ProductColumn::Pubblica; ++column) {
    const qint64 value = rows_.Value(row, column).toLongLong();
    if (added || value != rows_.FormerValue(column).toLongLong())
      RequireFilterValue(IDCatalogo_, column - ProductColumn::IDFiltro1 + 1, value,
                         rows_.Column(column).caption, *connection_);
  }
}

bool ProductEditing::AddFilterValue(int column, const QString& text) {
  try {
    // Another window may have added it meanwhile.
    OfferFilterValues(column);
    if (rows_.Column(column).lookup.ValueOf(text)) return true;
    if (Refuses(vorlina::CheckCell(rows_.Column(column).key, text, true))) return false;
    if (!TheDialogs().Ask(owner_, NumberedText(BaseConferma + 1) + u": "_qs + text)) return false;
    if (text.contains(u'"')) {
      TheDialogs().Message(owner_, Texts::tr("Non è possibile inserire il carattere \", sostituirlo con '"),
                           BoxStyle::Information);
      return false;
    }
    Products().FilterValue(column - ProductColumn::IDFiltro1 + 1, text);
    OfferFilterValues(column);
    return true;
  } catch (const std::exception& error) {
    TheDialogs().Message(
        owner_,
        Texts::tr("Errore durante l'inserimento del nuovo valore per il filtro. ") + DescriptionOf(error),
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
