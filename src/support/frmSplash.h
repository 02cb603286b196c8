// The first window of the program: it settles the language and, after a moment or at a click or key, asks for
// the main window by its signal.
#pragma once

#include <QIcon>
#include <QTimer>
#include <QWidget>
#include <memory>

namespace vorlina {

namespace Ui {
class frmSplash;
}

// "Versione 1.0.0" or "Version 1.0.0": major, minor and revision of the running program.
QString VersionText();

// The program's own picture.
QIcon ProgramIcon();

class frmSplash : public QWidget {
  Q_OBJECT

 public:
  explicit frmSplash(QWidget* parent = nullptr);
  ~frmSplash() override;

  // Fills the labels, chooses the language and starts the timer. To be called before the window is shown.
  void LoadSplash();

  // Milliseconds until the splash ends by itself.
  static constexpr int Interval = 1500;

 Q_SIGNALS:
  // Sent once, when the splash ends. The splash still shows when the timer ended it and is closed by then
  // otherwise.
  void Ended();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Localize_Form();
  void EndByTimer();
  void EndByUser();

  std::unique_ptr<Ui::frmSplash> ui_;
  QTimer* Timer1;
  bool ended_ = false;
};

}  // namespace vorlina
