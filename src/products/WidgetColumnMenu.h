// The menu over a column's head: word wrap and alignment. Its entries only move their checks; what they say
// is applied when the menu closes, whatever closed it.
#pragma once

#include <QMenu>
#include <array>

namespace vorlina {

class DataGrid;

class WidgetColumnMenu : public QMenu {
 public:
  explicit WidgetColumnMenu(DataGrid& grid);

  void Localize();
  // Shows it for a column, at a point of the screen.
  void PopUp(const QString& key, const QPoint& position);

 private:
  void Apply();

  DataGrid& grid_;
  QString key_;
  QAction* mnuTestoACapo;
  QMenu* mnuAllineamento;
  std::array<QAction*, 3> mnuTipoAllineamento;
};

}  // namespace vorlina
