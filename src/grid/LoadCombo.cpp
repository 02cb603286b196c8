#include "grid/LoadCombo.h"

#include <QHeaderView>
#include <QLoggingCategory>
#include <QStandardItemModel>
#include <QTableView>

#include "base/Error.h"
#include "base/Helpers.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(grid, "vorlina.grid", QtInfoMsg)

void FillModel(Rows& rows, const QString& displayColumn, const QString& valueColumn, QComboBox& combo) {
  auto* model = new QStandardItemModel(0, rows.ColumnCount(), &combo);
  int display = 0;
  for (int i = 0; i < rows.ColumnCount(); ++i)
    if (rows.ColumnName(i).compare(displayColumn, Qt::CaseInsensitive) == 0) display = i;
  while (rows.Next()) {
    QList<QStandardItem*> row;
    for (int i = 0; i < rows.ColumnCount(); ++i) row += new QStandardItem(NullToEmpty(rows.Value(i)));
    row[display]->setData(rows.Value(valueColumn), ComboValueRole);
    model->appendRow(row);
  }
  combo.setModel(model);
  combo.setModelColumn(display);
}

// The drop-down as a table without headers, so that it can show several columns.
void ShowColumns(QComboBox& combo, const QList<int>& hiddenColumns) {
  auto* view = new QTableView(&combo);
  view->horizontalHeader()->hide();
  view->verticalHeader()->hide();
  view->setShowGrid(false);
  view->setSelectionBehavior(QAbstractItemView::SelectRows);
  combo.setView(view);
  for (const int column : hiddenColumns) view->setColumnHidden(column, true);
  view->horizontalHeader()->setStretchLastSection(true);
}

}  // namespace

void LoadCombo(QComboBox& combo, const QString& sql, const QString& displayColumn, const QString& valueColumn,
               Connection& connection, const QList<int>& hiddenColumns, const QVariantList& values) {
  try {
    Rows rows(connection, sql, values);
    FillModel(rows, displayColumn, valueColumn, combo);
    ShowColumns(combo, hiddenColumns);
  } catch (const std::exception& error) {
    qCDebug(grid) << "LoadCombo" << sql << DescriptionOf(error);
  }
}

}  // namespace vorlina
