#include "grid/GridClipboard.h"

#include <QApplication>
#include <QClipboard>

#include "base/Helpers.h"
#include "base/Texts.h"
#include "base/WidgetProgressBox.h"
#include "grid/GridCells.h"
#include "grid/RecordsetModel.h"

namespace vorlina {
namespace {

constexpr int ReportedRows = 1000;

// From here on a copy shows how far it is.
constexpr int RowsCopiedAtOnce = 5000;

QString CellText(const RecordsetModel& rows, int row, int column) {
  const QVariant value = rows.Value(row, column);
  switch (rows.Column(column).kind) {
    case ColumnKind::Lookup:
      return rows.Column(column).lookup.TextOf(value.toLongLong());
    case ColumnKind::Boolean:
      return value.toBool() ? Texts::tr("Sì") : u"No"_qs;
    default:
      return NullToEmpty(value);
  }
}

}  // namespace

QString SelectionText(const GridCells& cells, const RecordsetModel& rows, const QString& cellSeparator,
                      const QString& rowSeparator, const Progress& progress) {
  const QList<int> columns = cells.ValueColumns();
  const QList<int> selected = cells.SelectedRows();
  QString text;
  for (qsizetype i = 0; i < selected.size(); ++i) {
    if (i % ReportedRows == 0 && progress && !progress(i, selected.size(), {})) return {};
    if (i > 0) text += rowSeparator;
    for (qsizetype j = 0; j < columns.size(); ++j)
      text += (j > 0 ? cellSeparator : QString()) + CellText(rows, selected[i], columns[j]);
  }
  return text;
}

void CopyToClipboard(const GridCells& cells, const RecordsetModel& rows, QWidget* owner) {
  const int count = cells.SelectedCount();
  if (count == 0) return;
  QString text;
  if (count < RowsCopiedAtOnce) {
    text = SelectionText(cells, rows, u"\t"_qs, u"\n"_qs);
  } else {
    WidgetProgressBox box(owner, Texts::tr("Copia in corso..."));
    text = SelectionText(cells, rows, u"\t"_qs, u"\n"_qs, box.Reporter());
  }
  if (!text.isEmpty()) QApplication::clipboard()->setText(text);
}

QString ClipboardCell() {
  QString text = QApplication::clipboard()->text();
  if (text.endsWith(u'\n')) text.chop(text.endsWith(u"\r\n"_qs) ? 2 : 1);
  return text;
}

}  // namespace vorlina
