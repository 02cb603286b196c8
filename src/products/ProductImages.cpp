#include "products/ProductImages.h"

#include <QFile>
#include <algorithm>

#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Texts.h"
#include "images/ImagePipeline.h"
#include "images/PictureFolder.h"
#include "images/PictureStore.h"
#include "store/Connection.h"
#include "store/Ranks.h"
#include "store/RowErrors.h"
#include "store/Transaction.h"

namespace vorlina {
namespace {

ConflictError Gone() {
  return ConflictError(
      Texts::tr("L'immagine è stata eliminata nel frattempo da un'altra finestra o da un altro programma."));
}

}  // namespace

QString ProductImages::Code() const { return products_.ValueOf(product_, u"CodiceProdotto"_qs).toString(); }

void ProductImages::Within(const char* label, const Step& step) {
  Transaction transaction(connection_, {label, {Code()}});
  PictureChange pictures(transaction, connection_);
  // Another program may have changed it until the transaction began.
  step(pictures, Code());
  transaction.Commit();
  pictures.RequireReplaced();
}

ProductImage ProductImages::Main() const {
  return {0, NullToEmpty(products_.ValueOf(product_, u"Descrizione"_qs)),
          NullToEmpty(products_.ValueOf(product_, u"Immagine"_qs))};
}

std::vector<ProductImage> ProductImages::List() const {
  std::vector<ProductImage> images;
  Rows rows(connection_,
            u"SELECT IDImmagine,I.Descrizione,I.Immagine FROM Prodotti P JOIN Immagini I "
            "USING (IDCatalogo,CodiceProdotto) WHERE IDProdotto=? AND IDCatalogo=? ORDER BY IDImmagine"_qs,
            {product_, IDCatalogo_});
  while (rows.Next())
    images.push_back({rows.Value(0).toLongLong(), NullToEmpty(rows.Value(1)), NullToEmpty(rows.Value(2))});
  return images;
}

ProductImage ProductImages::Find(qint64 image) const {
  const std::vector<ProductImage> images = List();
  const auto found = std::find_if(images.begin(), images.end(),
                                  [image](const ProductImage& one) { return one.IDImmagine == image; });
  if (found == images.end()) throw Gone();
  return *found;
}

void ProductImages::Mark() { products_.Mark(Code(), ProductMarks::Both); }

qint64 ProductImages::Add(const QString& source, const PreparedPicture& picture, const QString& description) {
  qint64 image = 0;
  Within(QT_TRANSLATE_NOOP("Texts", "Immagine aggiuntiva di %1"),
         [&](PictureChange& pictures, const QString& code) {
           if (products_.ValueOf(product_, u"Immagine"_qs).isNull())
             throw Error(Texts::tr(
                 "Il prodotto non ha più un'immagine principale. Sceglierne una prima di aggiungere "
                 "altre immagini."));
           image = NewRow(code);
           Fill(image, pictures, source, picture, description);
         });
  return image;
}

// A number whose file is there is passed over: a copy of the database, which may come back, may name it.
qint64 ProductImages::NewRow(const QString& code) {
  for (;;) {
    connection_.Execute(u"INSERT INTO Immagini (IDCatalogo,CodiceProdotto) VALUES (?,?)"_qs,
                        {IDCatalogo_, code});
    const qint64 number = connection_.LastInsertId();
    connection_.KeepCounter(u"Immagini"_qs, number);
    if (!QFile::exists(AdditionalImagePath(number))) return number;
    connection_.Execute(u"DELETE FROM Immagini WHERE IDImmagine=?"_qs, {number});
  }
}

void ProductImages::Fill(qint64 image, PictureChange& pictures, const QString& source,
                         const PreparedPicture& picture, const QString& description) {
  // Its own row is not to count among those that name the file.
  connection_.Execute(
      u"UPDATE Immagini SET Immagine=NULL,Height=?,Width=?,Descrizione=? WHERE IDImmagine=?"_qs,
      {picture.size.height(), picture.size.width(), description, image});
  const QString target = AdditionalImagePath(image);
  if (!IsPictureNameFree(target, connection_))
    throw Error(Texts::tr("Il file %1 è già usato come immagine o logo altrove. Eliminare questa immagine e "
                          "aggiungerne una nuova.")
                    .arg(target));
  pictures.Take(source, target, picture);
  connection_.Execute(u"UPDATE Immagini SET Immagine=? WHERE IDImmagine=?"_qs, {target, image});
}

ProductImages::Added ProductImages::AddFiles(const QStringList& files, const AskDescription& ask) {
  Added added;
  for (const QString& file : files) {
    Code();  // a product that is gone is told once
    try {
      const PreparedPicture picture = PrepareAdditionalFile(file);
      const QString description = ask(file);
      if (description.isNull()) break;
      added.last = Add(file, picture, description);
    } catch (const std::exception& error) {
      added.failures += FailureOfFile(file, error);
    }
  }
  return added;
}

void ProductImages::Change(qint64 image, const QString& source, const PreparedPicture& picture,
                           const QString& description) {
  Within(QT_TRANSLATE_NOOP("Texts", "Cambio di un'immagine di %1"),
         [&](PictureChange& pictures, const QString&) {
           const QString former = Find(image).Immagine;
           Fill(image, pictures, source, picture, description);
           pictures.Retire({{}, {former}});  // that had another name
         });
}

void ProductImages::Describe(qint64 image, const QString& description) {
  Within(QT_TRANSLATE_NOOP("Texts", "Descrizione di un'immagine di %1"), [&](PictureChange&, const QString&) {
    connection_.Execute(u"UPDATE Immagini SET Descrizione=? WHERE IDImmagine=?"_qs,
                        {description, Find(image).IDImmagine});
  });
}

void ProductImages::Delete(qint64 image) {
  Within(QT_TRANSLATE_NOOP("Texts", "Eliminazione di un'immagine di %1"),
         [&](PictureChange& pictures, const QString& code) {
           std::vector<ProductImage> images = List();
           std::erase_if(images, [image](const ProductImage& one) { return one.IDImmagine != image; });
           DeleteRows(images, pictures, code);
         });
}

void ProductImages::DeleteAll() {
  Within(QT_TRANSLATE_NOOP("Texts", "Eliminazione delle immagini aggiuntive di %1"),
         [&](PictureChange& pictures, const QString& code) { DeleteRows(List(), pictures, code); });
}

// The main picture's file is given up as one without a thumbnail.
void ProductImages::DeleteMain() {
  Within(QT_TRANSLATE_NOOP("Texts", "Eliminazione di tutte le immagini di %1"),
         [&](PictureChange& pictures, const QString& code) {
           DeleteRows(List(), pictures, code);
           pictures.Retire({{}, {Main().Immagine}});
           connection_.Execute(
               u"UPDATE Prodotti SET Immagine=NULL,Height=NULL,Width=NULL WHERE IDProdotto=?"_qs, {product_});
         });
}

void ProductImages::DeleteRows(const std::vector<ProductImage>& images, PictureChange& pictures,
                               const QString& code) {
  std::vector<qint64> numbers;
  QStringList files;
  for (const ProductImage& image : images) {
    numbers.push_back(image.IDImmagine);
    files += image.Immagine;
  }
  connection_.Execute(u"DELETE FROM Immagini WHERE IDImmagine IN (SELECT value FROM json_each(?))"_qs,
                      {KeyList(numbers)});
  pictures.Retire({{}, files});
  products_.Mark(code, ProductMarks::Both);
}

}  // namespace vorlina
