// In-place editing of those labels of a list that can be edited, by F2 or by a click on the label that is
// selected. The new text goes to the owner by a signal and is not written into the item, so that the owner
// decides what stands there.
#pragma once

#include <QPointer>
#include <QStyledItemDelegate>
#include <QTimer>

class QListWidget;
class QMouseEvent;

namespace vorlina {

class WidgetRenameDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  // Belongs to the list and becomes its delegate.
  explicit WidgetRenameDelegate(QListWidget& list);

  // An editor is open: the list must not be made anew.
  bool IsOpen() const { return editor_ != nullptr; }
  // Ends what is going on: an open editor hands its text over, and a click that was to open one opens none.
  void Finish();

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

 Q_SIGNALS:
  // The edit ends with this text, which may be the former one or empty. The editor is still there: no box may
  // be shown and the list not be touched before closeEditor. An edit left by Escape sends nothing.
  void Renamed(const QModelIndex& index, const QString& text) const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool EndsEdit(QEvent& event);
  void WatchList(const QEvent& event);
  bool IsOnSelected(const QEvent& event) const;

  QListWidget& list_;
  const QObject* const viewport_;  // events still come while the list is being destroyed
  mutable QPointer<QWidget> editor_;
  QTimer click_;
  bool pressed_ = false;
};

}  // namespace vorlina
