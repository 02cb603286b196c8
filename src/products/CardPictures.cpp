#include "products/CardPictures.h"

#include <QApplication>
#include <QFile>
#include <QLoggingCategory>
#include <QScopedValueRollback>

#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Texts.h"
#include "base/WaitCursor.h"
#include "images/PictureFolder.h"
#include "products/DroppedPictures.h"
#include "products/ProductCard.h"
#include "products/WidgetCardPicture.h"

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

void CardPictures::Show() {
  const bool isNew = card_ == nullptr || card_->Product() == 0;
  QString path;
  try {
    if (!isNew) path = card_->MainImage();
  } catch (const Error& error) {
    qCDebug(products) << "no picture" << error.Description();
  }
  box_.Show(path, isNew ? Texts::tr("L'immagine si aggiunge dopo aver salvato il prodotto.")
                        : Texts::tr("Nessuna immagine. Trascinare qui una foto JPEG."));
}

bool CardPictures::HasMain() const {
  try {
    return card_ != nullptr && card_->Product() != 0 && !card_->MainImage().isEmpty();
  } catch (const Error&) {
    return false;
  }
}

QString CardPictures::Change() {
  QString target;
  try {
    target = MainImagePath(IDCatalogo_, card_->Code());
    const QString file = TheDialogs().OpenFile(&window_, Texts::tr("Selezionare un'immagine"),
                                               Texts::tr("Immagini (*.jpg)|*.jpg"), {});
    if (file.isEmpty() || !QFile::exists(file)) return target;
    const WaitCursor wait;
    card_->SetMainImage(file);
  } catch (const std::exception& error) {
    ShowError(&window_, DescriptionOf(error));
    return target;
  }
  Show();
  Q_EMIT Changed();
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
      Show();
      Q_EMIT Changed();
      TheDialogs().Message(&window_, FirstLines(failures), BoxStyle::Stop);
    } catch (const std::exception& error) {
      ShowError(&window_, DescriptionOf(error));
    }
  }
}

}  // namespace vorlina
