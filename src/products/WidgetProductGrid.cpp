#include "products/WidgetProductGrid.h"

#include <QFile>
#include <QHeaderView>
#include <QLoggingCategory>
#include <QScopedValueRollback>
#include <QScrollBar>

#include "base/AppPath.h"
#include "base/CommandIcon.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/SafeFile.h"
#include "base/WaitCursor.h"
#include "products/Attempt.h"
#include "products/CellRules.h"
#include "products/ProductEditing.h"
#include "products/WidgetGridPreview.h"
#include "store/LockPatience.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(products, "vorlina.products", QtInfoMsg)

// Logical pixels.
constexpr int PictureWidth = 23;  // 350 of the twips in which the window was designed, 15 to a pixel
constexpr int DescriptionWidth = 280;

const QString PictureKey = u"Immagine"_qs;

}  // namespace

WidgetProductGrid::WidgetProductGrid(QWidget* parent) : DataGrid(parent) {
  horizontalHeader()->setMinimumSectionSize(PictureWidth);
  SetNewRowKey(CodeColumn);
  Rows().OnUnboundData = [this](int row, int column, int role) { return PictureOf(row, column, role); };
  editing_ = std::make_unique<ProductEditing>(Rows(), window());
  preview_ = new WidgetGridPreview(*this);
  ConnectSignals();
}

// What is still connected would reach a grid of which only the base is left.
WidgetProductGrid::~WidgetProductGrid() {
  disconnect(this, nullptr, this, nullptr);
  Release();
}

void WidgetProductGrid::ConnectSignals() {
  connect(editing_.get(), &ProductEditing::Refused, this, &DataGrid::RowFailed);
  connect(this, &DataGrid::CurrentCellChanged, this, &WidgetProductGrid::GoneTo);
  connect(this, &DataGrid::HeaderClicked, this, &WidgetProductGrid::ToggleSort);
  connect(this, &DataGrid::CellPressed, this, &WidgetProductGrid::PressCell);
  connect(this, &DataGrid::CellHovered, this, [this](int row, const QString& key) {
    if (row < 0) return preview_->PointerLeft();
    if (key != PictureKey || row != CurrentRow()) preview_->Hide();
  });
  connect(this, &DataGrid::RowDragStarted, preview_, &WidgetGridPreview::Hide);
  connect(verticalScrollBar(), &QScrollBar::valueChanged, preview_, &WidgetGridPreview::Hide);
}

void WidgetProductGrid::ShowCatalog(const Recordset& rsCatalogo, Connection& connection, bool first) {
  IDCatalogo_ = rsCatalogo.Value(u"IDCatalogo"_qs).toInt();
  fields_ = ProductGridFields::Of(rsCatalogo);
  connection_ = &connection;
  editing_->SetCatalog(IDCatalogo_, connection);
  LayoutGriglia.clear();
  const QScopedValueRollback<bool> loading(Caricamento, first);
  LoadGrid(true);
}

void WidgetProductGrid::LoadGrid(bool keepLayout) {
  const WaitCursor wait;
  try {
    if (LeaveRow()) FillGrid(keepLayout);
  } catch (const std::exception& error) {
    qCDebug(products) << "the grid was not loaded whole:" << DescriptionOf(error);
    fields_ = {};  // none that are shown: it is tried again at the next activation
  }
}

void WidgetProductGrid::FillGrid(bool keepLayout) {
  const QString code = NullToEmpty(Rows().Value(CurrentRow(), ProductColumn::Codice));
  const QString key = CurrentKey();
  const bool shown = Rows().columnCount() > 0;
  const int sorted = Rows().SortColumn();
  const SortDirection direction = Rows().Sorted();
  // A filter may have been given another name.
  fields_ = ProductGridFields::Of(IDCatalogo_, *connection_);
  OpenGrid();
  std::vector<GridColumn> columns = ProductGridColumns(fields_, IDCatalogo_, *connection_);
  DecorateColumns(columns);
  Bind(rsGriglia, std::move(columns));
  KeepSort(sorted, direction);
  // Behind the binding, which leaves a column that has another name by now in its place.
  if (shown && keepLayout) LayoutGriglia = LayoutText(Layout());
  PlacePictureColumns();
  ArrangeGrid(keepLayout);
  GoToProduct(code, key);
  editing_->OfferDefaults();
  filled_ = MarkNow().value_or(0);
  valuesRead_ = filled_;
  Q_EMIT Filled();
}

// Of a column that has another name by now.
void WidgetProductGrid::KeepSort(int column, SortDirection direction) {
  if (column >= 0 && Rows().SortColumn() < 0 && Rows().Column(column).visible)
    SetSort(Rows().Column(column).key, direction);
}

bool WidgetProductGrid::HasOtherNames() const {
  try {
    const LockPatience none(0);
    return !rsGriglia.IsOpen() || !(ProductGridFields::Of(IDCatalogo_, *connection_) == fields_);
  } catch (const Error& error) {
    qCDebug(products) << "names not read" << error.Description();
  }
  return false;
}

bool WidgetProductGrid::HasChanged() const { return MarkNow() != filled_; }

// None where the database cannot tell, which is no mark that anything had.
std::optional<qint64> WidgetProductGrid::MarkNow() const {
  try {
    const LockPatience none(0);
    if (rsGriglia.IsOpen()) return rsGriglia.ChangeMark();
  } catch (const Error& error) {
    qCDebug(products) << "no mark" << error.Description();
  }
  return {};
}

// Where the statement fails the grid is empty; how it was arranged is kept for the next one.
void WidgetProductGrid::OpenGrid() {
  Recordset fresh;
  try {
    fresh.Open(ProductGridQuery(fields_, IDCatalogo_, CondizioneRicerca), *connection_);
  } catch (const Error&) {
    if (Rows().columnCount() > 0) LayoutGriglia = LayoutText(Layout());
    Rows().Unbind();
    rsGriglia.Close();
    throw;
  }
  rsGriglia = std::move(fresh);
}

void WidgetProductGrid::DecorateColumns(std::vector<GridColumn>& columns) const {
  for (std::size_t i = 0; i < fields_.filters.size(); ++i)
    if (fields_.filters[i].inUse) columns[ProductColumn::IDFiltro1 + i].icon = CommandIcon(u"filter"_qs);
  columns[ProductColumn::SchedaPicture].icon = CommandIcon(u"sheet"_qs);
  columns[ProductColumn::ImmaginePicture].icon = CommandIcon(u"picture"_qs);
  columns[ProductColumn::Ordine].alignment = Qt::AlignRight | Qt::AlignVCenter;
}

void WidgetProductGrid::PlacePictureColumns() {
  SetColumnPosition(u"Scheda"_qs, 0);
  SetColumnPosition(u"Immagine"_qs, 1);
  if (Caricamento) setColumnWidth(ProductColumn::Descrizione, DescriptionWidth);
}

// A drop-down's texts always stand at the left, and the columns of pictures have one width.
void WidgetProductGrid::ArrangeGrid(bool keepLayout) {
  if (!LayoutGriglia.isEmpty() && keepLayout)
    ApplyLayout(ParseLayout(LayoutGriglia));
  else if (Caricamento)
    LoadLayoutFile();
  for (const NamedField& filter : fields_.filters)
    if (filter.inUse) SetAlignment(filter.key, GridAlignment::Left);
  for (const int column : {ProductColumn::SchedaPicture, ProductColumn::ImmaginePicture})
    setColumnWidth(column, PictureWidth);
}

QString WidgetProductGrid::LayoutFile() const { return AppFile(u"Layouts/%1.lyt"_qs.arg(IDCatalogo_)); }

// A file that is no layout leaves the columns as they are bound.
void WidgetProductGrid::LoadLayoutFile() {
  try {
    MakeFolder(AppFile(u"Layouts"_qs));
    if (QFile::exists(LayoutFile())) ApplyLayout(LoadLayout(LayoutFile()));
  } catch (const Error& error) {
    qCDebug(products) << LayoutFile() << error.Description();
  }
}

void WidgetProductGrid::SaveLayoutFile() {
  try {
    if (rsGriglia.IsOpen()) SaveLayout(Layout(), LayoutFile());
  } catch (const Error& error) {
    qCDebug(products) << LayoutFile() << error.Description();
  }
}

void WidgetProductGrid::ReadAnew() {
  RefreshFilterValues(true);
  if (Reload()) editing_->OfferDefaults();
}

void WidgetProductGrid::RefreshFilterValues(bool names) {
  const std::optional<qint64> mark = MarkNow();
  if (connection_ == nullptr || (mark && *mark == valuesRead_)) return;
  const bool renamed = names && HasOtherNames();
  if (renamed && Rows().EditRow() < 0 && state() != EditingState) return LoadGrid(true);
  valuesRead_ = renamed || !names ? 0 : mark.value_or(0);
  editing_->RefreshFilterValues();
}

void WidgetProductGrid::Release() {
  Rows().Unbind();
  rsGriglia.Close();
  connection_ = nullptr;
}

void WidgetProductGrid::GoToProduct(const QString& code, const QString& key) {
  const int row = code.isEmpty() ? -1 : Rows().FindRow(CodeColumn, code);
  if (Rows().RecordCount() > 0) GoTo(std::max(row, 0), Rows().ColumnOf(key) < 0 ? CodeColumn : key);
}

void WidgetProductGrid::ToggleSort(const QString& key, SortDirection present) {
  const WaitCursor wait;
  SetSort(key, present == SortDirection::None        ? SortDirection::Ascending
               : present == SortDirection::Ascending ? SortDirection::Descending
                                                     : SortDirection::None);
}

QVariant WidgetProductGrid::PictureOf(int row, int column, int role) {
  if (role != Qt::DecorationRole && role != Qt::AccessibleTextRole) return {};
  const RecordsetModel& rows = Rows();
  const bool sheet = column == ProductColumn::SchedaPicture;
  const bool shown = sheet ? rows.Value(row, ProductColumn::SchedaTecnica).toBool()
                           : !rows.Value(row, ProductColumn::Immagine).isNull();
  if (!shown) return {};
  if (role == Qt::AccessibleTextRole) return rows.Column(column).toolTip;
  return rows.Column(column).icon;
}

void WidgetProductGrid::GoneTo(int row, const QString& key) {
  preview_->Hide();
  if (key == CodeColumn && Rows().StateOf(row) == RowState::AddNew)
    Attempt(window(), [this] { editing_->RefreshCode(); });
}

void WidgetProductGrid::PressCell(int row, const QString& key, Qt::MouseButton button,
                                  const QPoint& position) {
  if (row >= 0 && button != Qt::RightButton && key == PictureKey)
    preview_->Show(NullToEmpty(Rows().Value(row, ProductColumn::Immagine)), position);
}

}  // namespace vorlina
