// The window that Dialogs::Choose shows: a list of which one entry is taken, by a double click or Enter.
#pragma once

#include <QDialog>

class QListWidget;

namespace vorlina {

class WidgetChoice : public QDialog {
 public:
  // The question is shown as plain text. A text for `other` adds a button for something else.
  WidgetChoice(QWidget* owner, const QString& title, const QString& question, const QStringList& choices,
               int current, const QString& other);

  // Once the window is closed: the entry that was taken, -1 for none, the number of entries for something
  // else.
  int Chosen() const { return chosen_; }

 private:
  void AddButtons(const QString& other);
  void Take(int choice);

  QListWidget* list_;
  int chosen_ = -1;
};

}  // namespace vorlina
