#include "grid/LoadCombo.h"

#include <QComboBox>
#include <QHeaderView>
#include <QStandardItemModel>
#include <QTableView>

#include "base/Error.h"
#include "base/Helpers.h"
#include "store/Recordset.h"
#include "store/StoreError.h"

namespace vorlina {
namespace {

// The rows as read, with the value of each row as the data of all its cells, so that the combo finds it in
// the shown one.
QStandardItemModel* ModelOf(Recordset& rows, const QString& valueColumn, QObject* parent) {
  auto* model = new QStandardItemModel(0, int(rows.Columns().size()), parent);
  model->setHorizontalHeaderLabels(rows.FieldNames());
  for (; !rows.IsEOF(); rows.MoveNext()) {
    const QVariant value = rows.Value(valueColumn);
    QList<QStandardItem*> cells;
    for (int i = 0; i < model->columnCount(); ++i) {
      auto* cell = new QStandardItem(NullToEmpty(rows.Value(i)));
      cell->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
      cell->setData(value, Qt::UserRole);
      cells += cell;
    }
    model->appendRow(cells);
  }
  if (!rows.IsEmpty()) rows.MoveFirst();
  return model;
}

QTableView* Popup() {
  auto* view = new QTableView;
  view->setSelectionBehavior(QAbstractItemView::SelectRows);
  view->setSelectionMode(QAbstractItemView::SingleSelection);
  view->setEditTriggers(QAbstractItemView::NoEditTriggers);
  view->setShowGrid(false);
  view->setTabKeyNavigation(false);
  view->horizontalHeader()->hide();
  view->horizontalHeader()->setStretchLastSection(true);
  view->verticalHeader()->hide();
  return view;
}

int IndexOf(const Recordset& rows, const QString& column) {
  for (int i = 0; i < int(rows.Columns().size()); ++i)
    if (rows.Columns()[std::size_t(i)].name.compare(column, Qt::CaseInsensitive) == 0) return i;
  throw Error(column);
}

}  // namespace

void LoadCombo(Recordset& rows, QComboBox& combo, const QString& sql, const QString& displayColumn,
               const QString& valueColumn, Connection& connection, const std::vector<int>& hiddenColumns,
               const QVariantList& values) {
  try {
    rows.Close();
    rows.Open(sql, connection, CursorType::Static, LockType::ReadOnly, values);
    const int shown = IndexOf(rows, displayColumn);
    auto* view = qobject_cast<QTableView*>(combo.view());
    // The combo deletes the model of an earlier call, since it is its parent.
    combo.setModel(ModelOf(rows, valueColumn, &combo));
    if (view == nullptr) combo.setView(view = Popup());
    combo.setModelColumn(shown);
    for (int i = 0; i < int(rows.Columns().size()); ++i) view->setColumnHidden(i, false);
    for (const int column : hiddenColumns) view->setColumnHidden(column, true);
    combo.setCurrentIndex(-1);
  } catch (const std::exception& error) {
    qCDebug(StoreLog) << "LoadCombo:" << error.what();
  }
}

}  // namespace vorlina
