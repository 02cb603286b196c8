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

QStandardItemModel* FillModel(Recordset& recordset, const QString& displayColumn, const QString& valueColumn,
                              QObject* owner) {
  const RecordsetFields& fields = recordset.Fields();
  auto* model = new QStandardItemModel(0, fields.Count(), owner);
  model->setHorizontalHeaderLabels(fields.Names());
  for (recordset.MoveFirst(); !recordset.IsEOF(); recordset.MoveNext()) {
    QList<QStandardItem*> row;
    for (int i = 0; i < fields.Count(); ++i) row += new QStandardItem(NullToEmpty(recordset.Value(i)));
    row[fields.IndexOf(displayColumn)]->setData(recordset.Value(valueColumn), ComboValueRole);
    model->appendRow(row);
  }
  return model;
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

void LoadCombo(Recordset& recordset, QComboBox& combo, const QString& sql, const QString& displayColumn,
               const QString& valueColumn, Connection& connection, const QList<int>& hiddenColumns,
               const QVariantList& values) {
  try {
    recordset.Close();
    recordset.Open(sql, connection, CursorType::Static, LockType::ReadOnly, values);
    combo.setModel(FillModel(recordset, displayColumn, valueColumn, &combo));
    combo.setModelColumn(recordset.Fields().IndexOf(displayColumn));
    ShowColumns(combo, hiddenColumns);
  } catch (const std::exception& error) {
    qCDebug(grid) << "LoadCombo" << sql << DescriptionOf(error);
  }
}

}  // namespace vorlina
