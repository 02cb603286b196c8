// Paints a grid's cells and makes their editors: a line for texts and numbers, an editable drop-down for
// columns with a lookup. What is typed goes to the model by SetText; a cell that refuses it keeps its editor.
#pragma once

#include <QPointer>
#include <QStyledItemDelegate>
#include <functional>

#include "base/TextFolding.h"
#include "grid/GridColours.h"
#include "grid/RecordsetModel.h"

class QComboBox;
class QKeyEvent;
class QLineEdit;

namespace vorlina {

class WidgetGridDelegate : public QStyledItemDelegate {
 public:
  WidgetGridDelegate(RecordsetModel& rows, QObject* parent);

  void SetColours(const GridColours& colours) { colours_ = colours; }
  void SetTargetRow(int row) { targetRow_ = row; }
  // What is marked in the texts of the cells.
  void SetMarks(const TextNeedle& marks) { marks_ = marks; }

  // The open editor, or null; its line.
  QWidget* Editor() const { return editor_; }
  QLineEdit* Line() const;
  void Forget() { editor_ = nullptr; }
  // Opens the list of the drop-down that is open, at the text that is typed there.
  void ShowList();
  // Types a text over what stands in the open editor.
  void TypeOver(const QString& text) const;
  // Enter in the open editor, which goes no further.
  std::function<void()> OnEnter;
  // A key was released in the open editor.
  std::function<void(QLineEdit& line, const QKeyEvent& key)> OnKeyReleased;
  // Whether the cell has refused what was typed last.
  bool IsRefused() const { return refused_; }

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
  void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const override;
  // The whole text of a cell that shows a part of it.
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 private:
  void PaintMarks(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
  bool FilterDropDown(QComboBox& combo, QEvent& event);

  RecordsetModel& rows_;
  GridColours colours_;
  int targetRow_ = -1;
  TextNeedle marks_;
  mutable QPointer<QWidget> editor_;
  mutable bool refused_ = false;
};

}  // namespace vorlina
