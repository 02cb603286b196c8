// The properties of the catalog in the grid's window.
#pragma once

#include <QObject>
#include <QPointer>
#include <functional>

namespace vorlina {

class frmCatalog;
struct GridContext;

class Properties : public QObject {
  Q_OBJECT

 public:
  // The context outlives it. What reads the catalog's names anew and fills the grid is given along.
  Properties(GridContext& context, std::function<void()> LoadCatalog);
  ~Properties() override;

  // Opens the window, or brings it to the front. Throws Error.
  void Open();
  // Closes it before the grid's window closes. False where it has to stay.
  bool Close();

 private:
  frmCatalog* NewWindow();
  bool MayWrite(bool names);
  void Stored(const QString& caption);

  GridContext& context_;
  std::function<void()> LoadCatalog_;
  QPointer<frmCatalog> window_;
};

// The command of the toolbar.
void ShowProperties(GridContext& context);

}  // namespace vorlina
