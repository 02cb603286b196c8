#include "products/GridRefusals.h"

#include <QApplication>

#include "base/Dialogs.h"
#include "base/Texts.h"
#include "grid/DataGrid.h"

namespace vorlina {

GridRefusals::GridRefusals(QWidget& window, DataGrid& grid) : window_(window), grid_(grid) {
  QObject::connect(&grid, &DataGrid::RowFailed, &grid, [this](const QString& text) { Tell(text); });
}

// A dialog of the window that is up is in front of it.
QWidget* GridRefusals::Owner() const {
  QWidget* dialog = QApplication::activeModalWidget();
  return dialog != nullptr && dialog->parentWidget() == &window_ ? dialog : &window_;
}

void GridRefusals::Tell(const QString& text) {
  if (!refusals_) return TheDialogs().Message(Owner(), text, BoxStyle::Stop);
  if (!text.isEmpty()) *refusals_ += text;
}

bool GridRefusals::MayClose() {
  if (refusals_) return false;
  refusals_.emplace();
  const bool left = grid_.LeaveForGood();
  // Until the box is answered what is refused stays untold: an editor that loses the focus to it asks again.
  if (!left) TellWhyOpen(*refusals_);
  refusals_.reset();
  return left;
}

void GridRefusals::TellWhyOpen(QStringList refusals) {
  if (refusals.isEmpty()) refusals += Texts::tr("Il valore scritto nella riga non è stato accettato.");
  QString& last = refusals.last();
  if (!last.endsWith(u'.')) last += u'.';
  if (!last.contains(Texts::tr("Premere Esc "))) last += u' ' + GiveUpHint();
  window_.activateWindow();
  TheDialogs().Message(&window_, refusals.join(u"\r\n"_qs), BoxStyle::Stop);
}

}  // namespace vorlina
