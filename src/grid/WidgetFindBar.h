// The line below a grid in which a text is typed that is found in the rows as one types. The focus stays in
// it; Enter goes on to the next match, with Shift to the one before, round the end. Escape stops a search
// that is at work, and closes the line otherwise.
#pragma once

#include <QPersistentModelIndex>
#include <QTimer>
#include <QWidget>

#include "grid/RowFinder.h"

class QLabel;
class QLineEdit;
class QToolButton;

namespace vorlina {

class DataGrid;

class WidgetFindBar : public QWidget {
  Q_OBJECT

 public:
  // The grid outlives all that is done with the line, not the line itself.
  explicit WidgetFindBar(QWidget* parent = nullptr);

  // To be called once.
  void SetGrid(DataGrid& grid);
  // What the keys of the buttons are called in their tool tips.
  void SetKeys(const QString& next, const QString& previous);
  void Localize();

  // Shows the line, with its text selected. Not where the row in edit cannot be left.
  void Open();
  void Close();
  // Goes to a match without taking the focus.
  void FindNext() { Go(1); }
  void FindPrevious() { Go(-1); }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  // Escape in the grid, where it has no use for it.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MakeControls();
  void TextTyped();
  void Go(int step);
  void Escape();
  void Work();
  bool IsElsewhere() const;
  void Arrive();
  void GoTo(const RowFinder::Place& place);
  void GridMoved();
  void ShowFound();
  QString FoundText() const;

  DataGrid* grid_ = nullptr;
  RowFinder* finder_ = nullptr;
  QLabel* lblFind;
  QLineEdit* txtFind;
  QToolButton* cmdFindPrevious;
  QToolButton* cmdFindNext;
  QLabel* lblFound;
  QToolButton* cmdCloseFind;
  QString nextKey_;
  QString previousKey_;
  QTimer work_;
  QPersistentModelIndex origin_;  // where what is typed is sought from
  int steps_ = 0;                 // asked for while a match was still sought
  int lastStep_ = 1;
  bool typed_ = false;   // what was sought last, in place of a key pressed
  bool moving_ = false;  // the grid's current cell
  bool wrapped_ = false;
  bool failed_ = false;
};

}  // namespace vorlina
