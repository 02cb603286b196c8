#include "products/frmFilterData.h"

#include <QCloseEvent>
#include <QHeaderView>

#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "products/Attempt.h"
#include "publish/WidgetEscapedName.h"
#include "support/Language.h"
#include "support/Messages.h"
#include "ui_frmFilterData.h"

namespace vorlina {
namespace {

const QString ValueKey = u"Valore"_qs;

}  // namespace

frmFilterData::frmFilterData(QWidget* parent) : QWidget(parent, Qt::Window), ui_(new Ui::frmFilterData) {
  ui_->setupUi(this);
  refusals_ = std::make_unique<GridRefusals>(*this, *ui_->grdScheda);
  ui_->grdScheda->SetNewRowKey(ValueKey);
  QLineEdit* name = ui_->txtFilterName;
  connect(name, &QLineEdit::textChanged, this, [name] { LimitEscapedLength(*name); });
  name->installEventFilter(this);
}

// Left to the base class, the grid would outlive the members that it works on.
frmFilterData::~frmFilterData() {
  Release();
  delete ui_->grdScheda;
}

void frmFilterData::LoadForm() {
  values_.emplace(IDCatalogo, NumeroFiltro.toInt(), *Connessione);
  rsValori.Open(values_->Query(), *Connessione);
  LayRules();
  DataGrid& grid = *ui_->grdScheda;
  grid.Bind(rsValori, values_->Columns());
  grid.horizontalHeader()->setSectionResizeMode(grid.Rows().ColumnOf(ValueKey), QHeaderView::Stretch);
  ui_->txtFilterName->setText(NomeFiltro);
  Localize_Form();
  grid.GoTo(0, ValueKey);
  grid.setFocus();
}

void frmFilterData::Localize_Form() { ui_->retranslateUi(this); }

void frmFilterData::LayRules() {
  RecordsetModel& rows = ui_->grdScheda->Rows();
  rows.OnCellChanging = [&rows](CellChange& change) {
    if (rows.Column(change.column).key == ValueKey)
      change.newValue = FilterData::Fitted(NullToEmpty(change.newValue));
  };
  rows.OnRowChecking = [this](int row) { return CheckRow(row); };
  rows.OnRowWriting = [this, &rows](int, qint64 IDValore, bool added) {
    std::optional<QString> former;
    if (!added) former = NullToEmpty(rows.FormerValue(rows.ColumnOf(ValueKey)));
    values_->Saved(IDValore, former);
  };
  rows.OnRowsDeleting = [this](const std::vector<qint64>& bookmarks) {
    bool deletes = false;
    Attempt(this, [&] {
      const QString question = values_->DeletionQuestion(bookmarks);
      deletes = question.isEmpty() || TheDialogs().Ask(this, question, BoxStyle::QuestionNoFirst);
    });
    return deletes;
  };
  rows.DeleteBy = [this](const std::vector<qint64>& bookmarks) { values_->Delete(bookmarks); };
  const auto tell = [this] { Q_EMIT ValuesChanged(NumeroFiltro.toInt()); };
  connect(&rows, &RecordsetModel::RowInserted, this, tell);
  connect(&rows, &RecordsetModel::RowChanged, this, tell);
  connect(&rows, &RecordsetModel::RowsDeleted, this, tell);
}

// Whoever overwrites a value that products have is told so.
std::optional<RowRefusal> frmFilterData::CheckRow(int row) {
  const RecordsetModel& rows = ui_->grdScheda->Rows();
  if (rows.StateOf(row) != RowState::Edited) return {};
  const QString question =
      values_->ChangeQuestion(rows.BookmarkOf(row), NullToEmpty(rows.Value(row, ValueKey)));
  if (question.isEmpty() || TheDialogs().Ask(this, question, BoxStyle::QuestionNoFirst)) return {};
  return RowRefusal{{}, rows.ColumnOf(ValueKey)};
}

QString frmFilterData::TypedName() const { return OneLine(ui_->txtFilterName->text()).trimmed(); }

// Behind the event that takes the focus away, and before the next one. The box itself tells its end only
// where something was typed since the last time.
bool frmFilterData::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusOut)
    QMetaObject::invokeMethod(this, &frmFilterData::CheckName, Qt::QueuedConnection);
  return QWidget::eventFilter(watched, event);
}

// Another window in between is no leaving.
void frmFilterData::CheckName() {
  if (!isVisible() || focusWidget() == ui_->txtFilterName || !TypedName().isEmpty()) return;
  TheDialogs().Message(this, NumberedText(BaseConferma + 7), BoxStyle::Information);
  ui_->txtFilterName->setText(NomeFiltro);
  ui_->txtFilterName->selectAll();
  ui_->txtFilterName->setFocus();
}

void frmFilterData::StoreName() {
  const QString name = TypedName();
  if (name == NomeFiltro || name.isEmpty()) return;
  try {
    values_->Rename(NomeFiltro, name);
    NomeFiltro = name;
    Q_EMIT FilterRenamed(NumeroFiltro.toInt(), name);
  } catch (const std::exception& error) {
    ShowError(this, DescriptionOf(error));
  }
}

// A name that is being typed is given up first.
void frmFilterData::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape) return QWidget::keyPressEvent(event);
  if (!ui_->txtFilterName->hasFocus() || ui_->txtFilterName->text() == NomeFiltro) return void(close());
  ui_->txtFilterName->setText(NomeFiltro);
  ui_->txtFilterName->selectAll();
}

void frmFilterData::closeEvent(QCloseEvent* event) {
  if (rsValori.IsOpen()) {
    if (!refusals_->MayClose()) return event->ignore();
    StoreName();
    Release();
  }
  event->accept();
}

void frmFilterData::Release() {
  ui_->grdScheda->Rows().Unbind();
  rsValori.Close();
}

}  // namespace vorlina
