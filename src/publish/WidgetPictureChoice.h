// A picture that can be chosen from a file, and given up again: a small sample of it, and the buttons.
#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace vorlina {

class WidgetPictureChoice : public QWidget {
  Q_OBJECT

 public:
  explicit WidgetPictureChoice(QWidget* parent = nullptr);

  // Brings it into the language in use. The texts say what the picture is, and what shows where none is
  // chosen. The names of the controls end in the name of this one, without its first three letters.
  void Localize(const QString& what, const QString& none);

  // The full path of a JPEG file; "" where none is chosen.
  const QString& Path() const { return path_; }
  void SetPath(const QString& path);

 private:
  void ChooseFile();

  QLabel* sample_;
  QLabel* text_;
  QPushButton* choose_;
  QPushButton* clear_;
  QString path_;
  QString what_;
  QString none_;
};

}  // namespace vorlina
