#include "products/frmTechData.h"

#include <QCloseEvent>
#include <QFile>
#include <QHeaderView>
#include <QLineEdit>
#include <QLoggingCategory>

#include "base/AppPath.h"
#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Texts.h"
#include "base/WaitCursor.h"
#include "base/WidgetPlace.h"
#include "products/frmAdvancedEdit.h"
#include "publish/ExtensionManager.h"
#include "store/LockPatience.h"
#include "store/RowErrors.h"
#include "support/Language.h"
#include "ui_frmTechData.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(products, "vorlina.products", QtInfoMsg)

// Of the settings for the window's place.
const QString PlaceName = u"Scheda"_qs;

constexpr int FeatureWidth = 200;  // logical pixels

// What stands behind the caret is never completed over, and a key that types nothing completes nothing.
bool Completes(const QLineEdit& line, const QKeyEvent& key) {
  const int start = line.hasSelectedText() ? line.selectionStart() : line.cursorPosition();
  switch (key.key()) {
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
      return start == 0;
    case Qt::Key_Tab:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return false;
    default:
      return !key.text().isEmpty() && key.text().front().isPrint() && start == line.text().size();
  }
}

}  // namespace

frmTechData::frmTechData(QWidget* parent) : QWidget(parent, Qt::Window), ui_(new Ui::frmTechData) {
  ui_->setupUi(this);
  DataGrid& grid = *ui_->grdScheda;
  refusals_ = std::make_unique<GridRefusals>(*this, grid);
  grid.SetNewRowKey(FeatureColumn);
  grid.SetOnEnter([this] { EditRow(); });
  grid.OnKeyReleased = [this](QLineEdit& line, const QString& column, const QKeyEvent& key) {
    if (column == FeatureColumn && Completes(line, key)) CompletaCaratteristica(line);
  };
  connect(&grid, &DataGrid::DoubleClicked, this, [this](int row) {
    if (row >= 0) EditRow();
  });
}

// Left to the base class, the grid would outlive the members that it works on.
frmTechData::~frmTechData() {
  Release();
  delete ui_->grdScheda;
}

void frmTechData::LoadForm() {
  const WaitCursor wait;
  Fill();
  Localize_Form();
}

void frmTechData::Fill() {
  // The box waits until the grid is done with the row.
  data_.emplace(IDCatalogo, CodiceProdotto, *Connessione, [this] {
    QMetaObject::invokeMethod(
        this, [this] { TellFaultyExtensions(this); }, Qt::QueuedConnection);
  });
  rsScheda.Open(data_->Query(), *Connessione);
  LayRules();
  DataGrid& grid = *ui_->grdScheda;
  grid.Bind(rsScheda, data_->Columns());
  grid.setColumnWidth(grid.Rows().ColumnOf(FeatureColumn), FeatureWidth);
  grid.horizontalHeader()->setStretchLastSection(true);
  RestorePlace(*this, PlaceName);
  LoadLayoutFile();
  // Without rows that is where the first one is typed.
  grid.GoTo(0, FeatureColumn);
  grid.setFocus();
}

void frmTechData::Localize_Form() { ui_->retranslateUi(this); }

void frmTechData::LayRules() {
  RecordsetModel& rows = ui_->grdScheda->Rows();
  rows.OnRowChecking = [this](int row) { return CheckRow(row); };
  rows.OnRowWriting = [this](int, qint64, bool) { data_->Saved(); };
  rows.OnRowsDeleting = [this](const std::vector<qint64>&) {
    return TheDialogs().Ask(this, Texts::tr("Eliminare le caratteristiche selezionate?"),
                            BoxStyle::QuestionNoFirst);
  };
  rows.DeleteBy = [this](const std::vector<qint64>& bookmarks) { data_->Delete(bookmarks); };
  // The product may have got another code since.
  connect(&rows, &RecordsetModel::RowInserting, this,
          [this, &rows] { rows.SetDefaultValue(u"CodiceProdotto"_qs, data_->Code()); });
}

QString frmTechData::LayoutFile() const { return AppFile(u"CardLayout.lyt"_qs); }

// A file that is no layout leaves the columns as they are.
void frmTechData::LoadLayoutFile() {
  try {
    if (QFile::exists(LayoutFile())) ui_->grdScheda->ApplyLayout(LoadLayout(LayoutFile()));
  } catch (const Error& error) {
    qCDebug(products) << LayoutFile() << error.Description();
  }
}

std::optional<RowRefusal> frmTechData::CheckRow(int row) const {
  const RecordsetModel& rows = ui_->grdScheda->Rows();
  const FeatureVerdict verdict = CheckFeature(NullToEmpty(rows.Value(row, FeatureColumn)),
                                              NullToEmpty(rows.Value(row, FeatureValueColumn)));
  if (verdict.refusals.isEmpty()) return {};
  return RowRefusal{verdict.refusals, rows.ColumnOf(verdict.column)};
}

// The row is told by its key from here on: others may come and go meanwhile.
void frmTechData::EditRow() {
  DataGrid& grid = *ui_->grdScheda;
  const int row = grid.CurrentRow();
  if (editor_ != nullptr || row < 0 || grid.Rows().IsAddNewRow(row) || !grid.LeaveRow() ||
      grid.Rows().StateOf(row) != RowState::Shown)
    return;
  const QString feature = NullToEmpty(grid.Rows().Value(row, FeatureColumn));
  const QString value = NullToEmpty(grid.Rows().Value(row, FeatureValueColumn));
  editor_ = new frmAdvancedEdit(this);
  editor_->Take = [=, this, bookmark = grid.Rows().BookmarkOf(row)](const auto& newFeature,
                                                                    const auto& newValue) {
    return TakeEdited(bookmark, {FeatureColumn, feature, newFeature}, {FeatureValueColumn, value, newValue});
  };
  connect(editor_, &QDialog::rejected, this, [this, value] { KeepUnchanged(value); });
  editor_->EditFeature(feature, value);
}

// What cannot be written leaves nothing in edit behind the window, which stays. Nothing is written over a
// text that another one has replaced unseen, however often it is confirmed.
bool frmTechData::TakeEdited(qint64 bookmark, const EditedText& feature, const EditedText& value) {
  RecordsetModel& rows = ui_->grdScheda->Rows();
  const int row = rows.RowOf(bookmark);
  const auto take = [&](const EditedText& text) {
    const int column = rows.ColumnOf(text.column);
    return !text.typed || rows.SetText(rows.index(row, column), *text.typed);
  };
  const auto isReplaced = [&](const EditedText& text) {
    return text.typed && NullToEmpty(rows.FormerValue(rows.ColumnOf(text.column))) != text.opened;
  };
  bool taken = take(feature) && take(value);
  if (taken && rows.EditRow() >= 0 && (isReplaced(feature) || isReplaced(value))) {
    refusals_->Tell(ConflictError::Changed().Description());
    taken = false;
  }
  if (taken && rows.EditRow() < 0) KeepUnchanged(value.opened);
  if (taken && rows.Submit()) return true;
  rows.Revert();
  return false;
}

// What was not confirmed is written back as it was: the row counts as changed.
void frmTechData::KeepUnchanged(const QString& value) {
  try {
    const QStringList refusals = CheckFeature({}, value).refusals;
    for (const QString& refusal : refusals) refusals_->Tell(refusal);
    if (refusals.isEmpty()) data_->Saved();
  } catch (const std::exception& error) {
    refusals_->Tell(DescriptionOf(error));
  }
}

// Errors are passed over: nothing is completed then.
void frmTechData::CompletaCaratteristica(QLineEdit& line) const {
  const QString typed = line.text();
  if (typed.isEmpty()) return;
  try {
    const LockPatience none(0);
    const QString found = data_->Completed(typed);
    if (found.isEmpty()) return;
    // As if it were typed, so that the cell takes it over.
    line.selectAll();
    line.insert(found);
    line.setSelection(int(typed.size()), int(found.size() - typed.size()));
  } catch (const Error& error) {
    qCDebug(products) << "not completed" << error.Description();
  }
}

void frmTechData::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else
    QWidget::keyPressEvent(event);
}

void frmTechData::closeEvent(QCloseEvent* event) {
  if (editor_ != nullptr || (rsScheda.IsOpen() && !refusals_->MayClose())) {
    (editor_ != nullptr ? static_cast<QWidget*>(editor_) : this)->activateWindow();
    return event->ignore();
  }
  try {
    if (rsScheda.IsOpen()) {
      data_->Finish();
      StorePlace(*this, PlaceName);
      SaveLayout(ui_->grdScheda->Layout(), LayoutFile());
    }
  } catch (const std::exception& error) {
    ShowError(this, DescriptionOf(error));
  }
  Release();
  event->accept();
  Q_EMIT Closed();
}

void frmTechData::Release() {
  ui_->grdScheda->Rows().Unbind();
  rsScheda.Close();
}

}  // namespace vorlina
