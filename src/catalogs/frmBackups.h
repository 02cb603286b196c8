// The window that offers what can be restored: the automatic copies and what was there before a restore, the
// newest first, and any other backup as a file.
#pragma once

#include <QDialog>
#include <memory>

namespace vorlina {

namespace Ui {
class frmBackups;
}

// The folder of the backup that was saved or chosen last, at first that of the user's documents.
QString BackupFolder();

class frmBackups : public QDialog {
  Q_OBJECT

 public:
  explicit frmBackups(QWidget* parent = nullptr);
  ~frmBackups() override;

  // Lists what there is. To be called once, before the window is shown.
  void LoadForm();

 Q_SIGNALS:
  // What is to be restored. The window has closed.
  void Chosen(const QString& source);

 private:
  void Add(const QDateTime& made, const QString& before, const QString& holds, qint64 size,
           const QString& source);
  void AddFormer(const QString& former);
  void SayNone();
  void KeepSelection();
  void ChooseFile();
  void ChooseSelected();
  void Choose(const QString& source);

  std::unique_ptr<Ui::frmBackups> ui_;
};

}  // namespace vorlina
