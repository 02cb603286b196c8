// What the user does in the product grid's window: the grid's events, its menus, and the toolbar's commands.
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScrollBar>

#include "base/CommandIcon.h"
#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Language.h"
#include "base/WaitCursor.h"
#include "grid/DataGrid.h"
#include "images/frmImageViewer.h"
#include "products/CellRules.h"
#include "products/PictureDrop.h"
#include "products/ProductEditing.h"
#include "products/PublicationOrder.h"
#include "products/WidgetColumnMenu.h"
#include "products/WidgetGridPreview.h"
#include "products/frmEditCatalog.h"

namespace vorlina {
namespace {

// Logical pixels; 1500 of the twips in which the window was designed, 15 to a pixel.
constexpr int RestoredWidth = 100;

const QString PictureKey = u"Immagine"_qs;

}  // namespace

void frmEditCatalog::ConnectGrid() {
  RecordsetModel& rows = grdProducts->Rows();
  rows.OnUnboundData = [this](int row, int column, int role) { return PictureOf(row, column, role); };
  const auto counts = [this] { ShowCounts(); };
  connect(&rows, &QAbstractItemModel::rowsInserted, this, counts);
  connect(&rows, &QAbstractItemModel::rowsRemoved, this, counts);
  connect(&rows, &QAbstractItemModel::modelReset, this, counts);
  connect(grdProducts, &DataGrid::SelectedRowsChanged, this, counts);
  connect(grdProducts, &DataGrid::RowFailed, this, [this](const QString& text) { Refuse(text); });
  connect(editing_.get(), &ProductEditing::Refused, this, [this](const QString& text) { Refuse(text); });
  grdProducts->SetNewRowKey(CodeColumn);
  connect(grdProducts, &DataGrid::CurrentCellChanged, this, [this](int row, const QString& key) {
    preview_->Hide();
    if (key == CodeColumn && grdProducts->Rows().StateOf(row) == RowState::AddNew)
      Attempt([this] { editing_->RefreshCode(); });
  });
  connect(grdProducts, &DataGrid::HeaderClicked, this, &frmEditCatalog::ToggleSort);
  connect(grdProducts, &DataGrid::HeaderPressed, this, &frmEditCatalog::PressHeader);
  connect(grdProducts, &DataGrid::CellPressed, this, &frmEditCatalog::PressCell);
  connect(grdProducts, &DataGrid::CellHovered, this, [this](int row, const QString& key) {
    if (row < 0) return preview_->PointerLeft();
    if (key != PictureKey || row != grdProducts->CurrentRow()) preview_->Hide();
  });
  connect(grdProducts->verticalScrollBar(), &QScrollBar::valueChanged, preview_, &WidgetGridPreview::Hide);
  connect(grdProducts, &DataGrid::RowDragStarted, preview_, &WidgetGridPreview::Hide);
  connect(grdProducts, &DataGrid::RowDropped, this, [this](int row) {
    Attempt([=, this] {
      if (MoveSelectedTo(row)) grdProducts->clearSelection();
    });
  });
  grdProducts->SetAcceptsFiles(true);
  grdProducts->TakesFile = &PictureDrop::IsPicture;
  // The row is selected only: to go there could bring a message for each move of the drag.
  connect(grdProducts, &DataGrid::FilesOver, this, [this](int row) {
    grdProducts->selectionModel()->select(grdProducts->Rows().index(row, 0),
                                          QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  });
  connect(grdProducts, &DataGrid::FilesDropped, this, &frmEditCatalog::DropFilesOn);
}

QVariant frmEditCatalog::PictureOf(int row, int column, int role) const {
  const RecordsetModel& rows = grdProducts->Rows();
  if (role != Qt::DecorationRole && role != Qt::AccessibleTextRole) return {};
  const bool sheet = column == ProductColumn::SchedaPicture;
  const bool shown = sheet ? rows.Value(row, ProductColumn::SchedaTecnica).toBool()
                           : !rows.Value(row, ProductColumn::Immagine).isNull();
  if (!shown) return {};
  if (role == Qt::AccessibleTextRole) return rows.Column(column).toolTip;
  return rows.Column(column).icon;
}

void frmEditCatalog::PressHeader(const QString& key, Qt::MouseButton button, const QPoint& position) {
  if (button == Qt::RightButton) mnuColonna->PopUp(key, grdProducts->mapToGlobal(position));
}

void frmEditCatalog::PopUpGridMenu(const QPoint& position) {
  mnuGriglia->findChild<QAction*>(u"mnuCopia"_qs)->setEnabled(grdProducts->SelectedCount() > 0);
  mnuGriglia->popup(grdProducts->mapToGlobal(position));
}

// The menu key opens the menu of the rows, with Ctrl that of the column.
void frmEditCatalog::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() != QContextMenuEvent::Keyboard || !grdProducts->currentIndex().isValid()) return;
  const QRect cell = grdProducts->visualRect(grdProducts->currentIndex());
  const QPoint position = grdProducts->viewport()->mapTo(grdProducts, cell.bottomLeft());
  if (event->modifiers().testFlag(Qt::ControlModifier))
    PressHeader(grdProducts->CurrentKey(), Qt::RightButton, position);
  else
    PopUpGridMenu(position);
}

void frmEditCatalog::PressCell(int row, const QString& key, Qt::MouseButton button, const QPoint& position) {
  if (row < 0) return;
  if (button == Qt::RightButton) {
    PopUpGridMenu(position);
  } else if (key == PictureKey) {
    preview_->Show(NullToEmpty(grdProducts->Rows().Value(row, ProductColumn::Immagine)), position);
  }
}

// The third click on a column takes its sort away.
void frmEditCatalog::ToggleSort(const QString& key, SortDirection present) {
  const WaitCursor wait;
  grdProducts->SetSort(key, present == SortDirection::None        ? SortDirection::Ascending
                            : present == SortDirection::Ascending ? SortDirection::Descending
                                                                  : SortDirection::None);
}

// The products are told by their keys: what is dragged is what the user sees under the hand, however the grid
// is sorted.
bool frmEditCatalog::MoveSelectedTo(int row) {
  if (!grdProducts->LeaveRow()) return false;
  const std::optional<RowBlock> block = BlockOf(grdProducts->SelectedRows());
  if (!block) {
    grdProducts->clearSelection();
    return false;
  }
  const RecordsetModel& rows = grdProducts->Rows();
  std::vector<qint64> moving;
  for (int moved = block->first; moved <= block->last; ++moved) moving.push_back(rows.BookmarkOf(moved));
  const WaitCursor wait;
  if (!MoveProducts(IDCatalogo, std::move(moving), rows.BookmarkOf(row), *Connessione)) return false;
  SortByOrder();
  return true;
}

void frmEditCatalog::SortByOrder() {
  const int top = grdProducts->rowAt(0);
  grdProducts->SetSort(grdProducts->Rows().Column(ProductColumn::Ordine).key, SortDirection::Ascending);
  grdProducts->scrollTo(grdProducts->Rows().index(top, grdProducts->currentIndex().column()),
                        QAbstractItemView::PositionAtTop);
}

// As a drop of the selected rows on the one above or below them; they stay selected, to be moved on.
void frmEditCatalog::MoveRows(bool down) {
  if (!grdProducts->LeaveRow()) return;
  const RecordsetModel& rows = grdProducts->Rows();
  const QList<int> selected = grdProducts->SelectedRows();
  if (selected.isEmpty()) return;
  const int target = down ? selected.last() + 1 : selected.first() - 1;
  if (target < 0 || target >= rows.RecordCount()) return;
  const qint64 first = rows.BookmarkOf(selected.first());
  const qint64 last = rows.BookmarkOf(selected.last());
  if (!MoveSelectedTo(target)) return;
  const auto [top, bottom] = std::minmax({rows.RowOf(first), rows.RowOf(last)});
  if (top < 0 || bottom - top + 1 != selected.size()) return;
  grdProducts->selectionModel()->select(QItemSelection(rows.index(top, 0), rows.index(bottom, 0)),
                                        QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  grdProducts->scrollTo(rows.index(down ? bottom : top, grdProducts->currentIndex().column()));
}

void frmEditCatalog::mnuOrdinePubbl_Click() {
  if (!grdProducts->LeaveRow()) return;
  const WaitCursor wait;
  RecordsetModel& rows = grdProducts->Rows();
  std::vector<qint64> bookmarks;
  bookmarks.reserve(std::size_t(rows.RecordCount()));
  for (int row = 0; row < rows.RecordCount(); ++row) bookmarks.push_back(rows.BookmarkOf(row));
  RenumberProducts(IDCatalogo, bookmarks, *Connessione);
  rows.Refresh();
  grdProducts->GoTo(0);
}

// Without a row of captions and without quotes: a ";" in a cell is not marked.
void frmEditCatalog::mnuCopia_Click() {
  const WaitCursor wait;
  QApplication::clipboard()->clear();
  QApplication::clipboard()->setText(grdProducts->CopySelection(u";"_qs, u"\r\n"_qs));
}

void frmEditCatalog::mnuResizeCol_Click() {
  for (int column = 0; column < ProductColumn::BoundCount; ++column)
    grdProducts->setColumnWidth(column, RestoredWidth);
}

// What other windows and programs have written since: rows that came or went, and values of the filters.
void frmEditCatalog::mnuAggiorna_Click() {
  if (!grdProducts->LeaveRow()) return;
  const WaitCursor wait;
  editing_->RefreshFilterValues();
  if (grdProducts->Reload()) editing_->OfferDefaults();
}

void frmEditCatalog::cmdDelete_Click() {
  if (grdProducts->SelectedCount() == 0 || grdProducts->Rows().IsAddNewRow(grdProducts->CurrentRow())) return;
  grdProducts->setFocus();
  grdProducts->DeleteSelected();
}

// The product that was picked by its picture becomes the current one.
void frmEditCatalog::cmdImmagini_Click() {
  if (!grdProducts->LeaveRow()) return;
  frmImageViewer viewer(this);
  viewer.IDCatalogo = IDCatalogo;
  viewer.Connection = Connessione.get();
  const QString code = viewer.ShowCatalog(CondizioneRicerca);
  if (!code.isEmpty()) GoToProduct(code, grdProducts->CurrentKey());
}

void frmEditCatalog::PublishWith(const QString& identifier) {
  if (busy_ || !grdProducts->LeaveRow()) return;
  const QScopedValueRollback<bool> busy(busy_, true);
  const std::unique_ptr<IVorlinaPlugin> plugin = CreatePlugin(identifier);
  PublishCatalog(*plugin, *Connessione, IDCatalogo);
}

// The program that the files come from waits for the end of the drop; the row may be another one by then.
void frmEditCatalog::DropFilesOn(int row, const QStringList& files) {
  const RecordsetModel& rows = grdProducts->Rows();
  const QString code = NullToEmpty(rows.Value(row, ProductColumn::Codice));
  const int catalog = rows.Value(row, ProductColumn::IDCatalogo).toInt();
  QMetaObject::invokeMethod(
      this, [=, this] { DropFiles(catalog, code, files); }, Qt::QueuedConnection);
}

// Behind what the box still has to bring to its end.
void frmEditCatalog::DropHeldFiles() {
  for (const std::function<void()>& drop : std::exchange(heldDrops_, {}))
    QMetaObject::invokeMethod(this, drop, Qt::QueuedConnection);
}

// What could not be taken is told at the end, in one box. A box that came up meanwhile may be asking about a
// cell: the grid is not filled anew under it.
void frmEditCatalog::DropFiles(int catalog, const QString& code, const QStringList& files) {
  if (QApplication::activeModalWidget() != nullptr)
    return heldDrops_.push_back([=, this] { DropFiles(catalog, code, files); });
  if (busy_ || Connessione == nullptr) return;
  const QScopedValueRollback<bool> busy(busy_, true);
  const auto ask = [this](const QString& file) {
    return TheDialogs().Input(
        this, EitherLanguage(u"Descrizione immagine per "_qs, u"Image description for "_qs) + file,
        EitherLanguage(u"Aggiungi/modifica immagine"_qs, u"Add/edit image"_qs), {});
  };
  QStringList failures;
  Attempt([&] {
    const WaitCursor wait;
    failures = PictureDrop(catalog, code, *Connessione).Add(files, ask);
  });
  GoToProduct(code, grdProducts->CurrentKey());
  LoadGrid(true);
  TheDialogs().Message(this, FirstLines(failures), BoxStyle::Stop);
}

}  // namespace vorlina
