#include "products/CardPictures.h"

#include <QApplication>
#include <QFile>
#include <QLoggingCategory>
#include <QScopedValueRollback>
#include <memory>

#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/LastFolder.h"
#include "base/Texts.h"
#include "base/WaitCursor.h"
#include "images/PictureFolder.h"
#include "images/frmImage.h"
#include "products/DroppedPictures.h"
#include "products/ProductCard.h"
#include "products/WidgetCardPicture.h"
#include "products/frmImages.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(products, "vorlina.products", QtInfoMsg)

}  // namespace

CardPictures::CardPictures(QWidget& window, WidgetCardPicture& box)
    : QObject(&window), window_(window), box_(box) {}

void CardPictures::SetCard(ProductCard* card, int IDCatalogo, Connection* connection) {
  card_ = card;
  IDCatalogo_ = IDCatalogo;
  connection_ = connection;
}

bool CardPictures::Show() {
  const bool isNew = card_ == nullptr || card_->Product() == 0;
  QString path;
  try {
    if (!isNew) path = card_->MainImage();
  } catch (const Error& error) {
    qCDebug(products) << "no picture" << error.Description();
  }
  box_.Show(path, isNew ? Texts::tr("L'immagine si aggiunge dopo aver salvato il prodotto.")
                        : Texts::tr("Nessuna immagine. Trascinare qui una foto JPEG."));
  return !path.isEmpty();
}

void CardPictures::Open() {
  const QString path = card_->MainImage();
  if (path.isEmpty()) return ChangeAndOpen();
  if (preview_ == nullptr) return OpenPreview(path);
  preview_->activateWindow();
}

void CardPictures::OpenPreview(const QString& path) {
  auto preview = std::make_unique<frmImage>(&window_);
  preview->setAttribute(Qt::WA_DeleteOnClose);
  auto* list = new frmImages(preview.get());
  preview->Percorso = path;
  preview->ListaImmagini = list;
  preview->Card = &window_;
  list->IDCatalogo = IDCatalogo_;
  list->CodiceProdotto = card_->Code();
  list->Connessione = connection_;
  list->Anteprima = preview.get();
  list->ImageChange = [this] { return Change(); };
  list->MainImageRemoved = [this] { Q_EMIT Changed(Show()); };
  preview->LoadForm();
  list->LoadForm();
  preview_ = preview.release();
  preview_->show();
  list->show();
}

void CardPictures::ChangeAndOpen() {
  if (!Change().isEmpty()) return;
  if (preview_ != nullptr && !preview_->close()) return;
  OpenPreview(card_->MainImage());
}

QString CardPictures::Change() {
  const QString main = card_->MainImage();
  QString kept = main.isEmpty() ? MainImagePath(IDCatalogo_, card_->Code()) : main;
  try {
    const QString file = OpenFileFor(purpose::Pictures, &window_, Texts::tr("Selezionare un'immagine"),
                                     Texts::tr("Immagini (*.jpg)|*.jpg"));
    if (file.isEmpty() || !QFile::exists(file)) return kept;
    const WaitCursor wait;
    card_->SetMainImage(file);
  } catch (const std::exception& error) {
    ShowError(&window_, DescriptionOf(error));
    return kept;
  }
  Q_EMIT Changed(Show());
  return {};
}

void CardPictures::Drop(const QStringList& files) {
  held_.emplace_back(card_->Product(), files);
  TakeHeld();
}

void CardPictures::TakeHeld() { QMetaObject::invokeMethod(this, &CardPictures::Take, Qt::QueuedConnection); }

void CardPictures::Take() {
  if (busy_ || connection_ == nullptr || QApplication::activeModalWidget() != nullptr) return;
  const QScopedValueRollback<bool> busy(busy_, true);
  for (const auto& [product, files] : std::exchange(held_, {})) {
    try {
      const QString code = card_->Products().ValueOf(product, u"CodiceProdotto"_qs).toString();
      const QStringList failures = AddDroppedPictures({IDCatalogo_, code}, files, *connection_, window_);
      Q_EMIT Changed(Show());
      TheDialogs().Message(&window_, FirstLines(failures), BoxStyle::Stop);
    } catch (const std::exception& error) {
      ShowError(&window_, DescriptionOf(error));
    }
  }
}

}  // namespace vorlina
