// The import of a folder of pictures in the grid's window, which stays in use meanwhile.
#pragma once

#include <QObject>
#include <QTimer>

class QStatusBar;

namespace vorlina {

class PictureImport;
class WidgetImportOutcome;
class WidgetImportProgress;
struct GridContext;

class ImportPictures : public QObject {
  Q_OBJECT

 public:
  // Tells in the status bar what came of it. The context outlives it.
  ImportPictures(GridContext& context, QStatusBar& status);
  ~ImportPictures() override;

  // Asks for a folder and imports it. Throws Error where the catalog is being published.
  void Import();

  // Whether the window may close. Where it may not, the import is asked to stop, and Finished follows.
  bool MayClose();
  bool IsClosing() const { return closing_; }
  // Shows what came, once the user is done with what is edited in the grid.
  void FillGrid();

 Q_SIGNALS:
  // The import for which the window could not close has ended, and nothing of it is at work any more.
  void Finished();

 private:
  void ImportFolder(const QString& folder);
  bool Run(PictureImport& import);
  void TellFailure(const PictureImport& import, const QString& description);

  GridContext& context_;
  WidgetImportProgress* fmeProgress_;
  WidgetImportOutcome* outcome_;
  QTimer fill_;  // runs while the grid waits for its user before it is filled
  bool running_ = false;
  bool closing_ = false;
};

// The command of the toolbar.
void ImportFolder(GridContext& context);

}  // namespace vorlina
