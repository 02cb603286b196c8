#include "images/frmImageViewer.h"

#include <QKeyEvent>
#include <QLoggingCategory>
#include <map>

#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Texts.h"
#include "base/WaitCursor.h"
#include "base/WidgetPlace.h"
#include "images/WidgetPicture.h"
#include "images/WidgetPictureTile.h"
#include "ui_frmImageViewer.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(images, "vorlina.images", QtInfoMsg)

constexpr int Columns = 3;

QString Describe(const PictureTile& tile) {
  return Texts::tr("Codice: ") + tile.CodiceProdotto + Texts::tr(" Descrizione: ") + tile.Descrizione;
}

}  // namespace

frmImageViewer::frmImageViewer(QWidget* parent) : QDialog(parent), ui_(new Ui::frmImageViewer) {
  ui_->setupUi(this);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  MakeTiles();
  connect(ui_->cmdFirst, &QPushButton::clicked, this, [this] { GoTo(1); });
  connect(ui_->cmdBack, &QPushButton::clicked, this, [this] { GoTo(Pagina - 1); });
  connect(ui_->cmdForward, &QPushButton::clicked, this, [this] { GoTo(Pagina + 1); });
  connect(ui_->cmdLast, &QPushButton::clicked, this, [this] { GoTo(PicturePageCount(Rs)); });
}

frmImageViewer::~frmImageViewer() = default;

void frmImageViewer::MakeTiles() {
  for (int i = 0; i < PictureTiles; ++i) {
    auto* tile = new WidgetPictureTile(this);
    tile->setObjectName(u"extPicture_%1"_qs.arg(i));
    tile->intPicture->setObjectName(u"intPicture_%1"_qs.arg(i));
    connect(tile, &WidgetPictureTile::Clicked, this, [this, i] { Select(i); });
    connect(tile, &WidgetPictureTile::DoubleClicked, this, [this, i] { Choose(i); });
    ui_->layoutTiles->addWidget(tile, i / Columns, i % Columns);
    extPicture[std::size_t(i)] = tile;
  }
}

void frmImageViewer::Localize_Form() { ui_->retranslateUi(this); }

QString frmImageViewer::ShowCatalog(const QString& extra, const QVariantList& values) {
  QString code;
  try {
    OpenCatalog(extra, values);
    exec();
    if (Confirmed && Selected != -1) code = extPicture[std::size_t(Selected)]->Code();
  } catch (const std::exception& error) {
    qCDebug(images) << "no pictures shown" << DescriptionOf(error);
  }
  Rs.Close();
  Connection = nullptr;
  return code;
}

void frmImageViewer::OpenCatalog(const QString& extra, const QVariantList& values) {
  const WaitCursor wait;
  OpenPicturePages(Rs, *Connection, IDCatalogo, extra, values);
  FitIntoScreen(*this);
  layout()->activate();      // the tiles know their size before they are filled
  ui_->cmdForward->click();  // from the empty page to the first one
  extPicture[0]->setFocus();
  Localize_Form();
}

void frmImageViewer::GoTo(qint64 page) {
  Pagina = page;
  SetPagerButtons();
  LoadPage();
}

void frmImageViewer::SetPagerButtons() {
  ui_->cmdForward->setEnabled(Pagina < PicturePageCount(Rs));
  ui_->cmdBack->setEnabled(Pagina > 1);
}

void frmImageViewer::LoadPage() {
  Select(-1);
  const std::vector<PictureTile> page = ReadPicturePage(Rs, Pagina);
  for (std::size_t i = 0; i < extPicture.size(); ++i) {
    const PictureTile tile = i < page.size() ? page[i] : PictureTile();
    const QString description = tile.CodiceProdotto.isEmpty() ? QString() : Describe(tile);
    extPicture[i]->Show(tile.CodiceProdotto, description,
                        ShowThumbnail(tile.Immagine, extPicture[i]->PicturePixels()));
  }
  ui_->lblPages->setText(Texts::tr("Pagina %1 di %2").arg(Pagina).arg(PicturePageCount(Rs)));
}

// The Tab key comes to one tile, the selected one.
void frmImageViewer::Select(int tile) {
  Selected = tile;
  for (int i = 0; i < PictureTiles; ++i) {
    extPicture[std::size_t(i)]->SetSelected(i == tile);
    extPicture[std::size_t(i)]->setFocusPolicy(i == qMax(tile, 0) ? Qt::StrongFocus : Qt::ClickFocus);
  }
  if (tile >= 0) extPicture[std::size_t(tile)]->setFocus();
}

void frmImageViewer::MoveSelection(int step) {
  const int target = Selected < 0 ? 0 : Selected + step;
  if (target < 0 || target >= PictureTiles || extPicture[std::size_t(target)]->Code().isEmpty()) return;
  Select(target);
}

void frmImageViewer::Choose(int tile) {
  if (tile < 0 || extPicture[std::size_t(tile)]->Code().isEmpty()) return;
  Select(tile);
  Confirmed = true;
  accept();
}

// The paging keys, and Enter on a button.
bool frmImageViewer::PressButton(int key) {
  const std::map<int, QPushButton*> buttons = {{Qt::Key_Home, ui_->cmdFirst},
                                               {Qt::Key_PageUp, ui_->cmdBack},
                                               {Qt::Key_PageDown, ui_->cmdForward},
                                               {Qt::Key_End, ui_->cmdLast}};
  const auto found = buttons.find(key);
  QPushButton* button = found != buttons.end() ? found->second : nullptr;
  if (key == Qt::Key_Return || key == Qt::Key_Enter) button = qobject_cast<QPushButton*>(focusWidget());
  if (button == nullptr) return false;
  button->click();
  return true;
}

void frmImageViewer::keyPressEvent(QKeyEvent* event) {
  static const std::map<int, int> steps = {
      {Qt::Key_Left, -1}, {Qt::Key_Right, 1}, {Qt::Key_Up, -Columns}, {Qt::Key_Down, Columns}};
  if (PressButton(event->key())) return;
  if (const auto step = steps.find(event->key()); step != steps.end())
    MoveSelection(step->second);
  else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    Choose(Selected);
  else
    QDialog::keyPressEvent(event);
}

}  // namespace vorlina
