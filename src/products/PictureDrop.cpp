#include "products/PictureDrop.h"

#include <QDir>
#include <QFile>

#include "base/Error.h"
#include "base/Language.h"
#include "images/ImagePipeline.h"
#include "store/Connection.h"
#include "store/Recordset.h"
#include "store/Transaction.h"

namespace vorlina {
namespace {

// A step with our copy of the user's file. What is refused is the user's: the copy's name means nothing to
// them.
template <class Step>
auto OfCopy(const QString& file, const QString& copy, Step&& step) {
  try {
    return step(copy);
  } catch (const Error& error) {
    throw Error(
        QString(error.Description()).replace(QDir::toNativeSeparators(copy), QDir::toNativeSeparators(file)));
  }
}

// Nothing stays of a picture that cannot be taken, but for a file that lies in "Images" under this name
// already.
template <class Step>
void WholeOrNothing(const QString& file, const PictureFiles& copies, Connection& connection, Step&& step) {
  const bool isOwn = IsSameFile(file, (copies.main + copies.others).first());
  try {
    step();
  } catch (...) {
    if (!isOwn) RemoveUnnamedPictures(copies, connection);
    throw;
  }
}

QString FailureOf(const QString& file, const std::exception& error) {
  const QString name = QDir::toNativeSeparators(file);
  const QString text = DescriptionOf(error);
  return text.contains(name) ? text : name + u": "_qs + text;
}

}  // namespace

bool PictureDrop::IsPicture(const QString& file) {
  return file.endsWith(u"jpg"_qs, Qt::CaseInsensitive) || file.endsWith(u"jpeg"_qs, Qt::CaseInsensitive);
}

QStringList PictureDrop::Add(const QStringList& files, const AskDescription& ask) {
  QStringList failures;
  for (const QString& file : files) {
    if (!IsPicture(file)) continue;
    const bool additional = HasMainPicture();
    try {
      additional ? AddAdditional(file, ask) : AddMain(file);
    } catch (const std::exception& error) {
      failures += FailureOf(file, error);
    }
  }
  return failures;
}

// A lookup that failed and gave nothing would have the picture that is there written over.
bool PictureDrop::HasMainPicture() const {
  Rows rows(connection_, u"SELECT Immagine FROM Prodotti WHERE IDCatalogo=? AND CodiceProdotto=?"_qs,
            {IDCatalogo_, CodiceProdotto_});
  if (!rows.Next())
    throw Error(EitherLanguage(
        u"Il prodotto è stato eliminato nel frattempo da un'altra finestra o da un altro programma."_qs,
        u"The product was deleted meanwhile by another window or program."_qs));
  return !rows.Value(0).isNull();
}

void PictureDrop::AddMain(const QString& file) {
  const QString target = MainImagePath(IDCatalogo_, CodiceProdotto_);
  if (QFile::exists(target) && IsPictureNamed(target, connection_, {IDCatalogo_, CodiceProdotto_}))
    throw Error(EitherLanguage(u"Il file %1 è già usato come immagine o logo altrove. Cambiare il codice."_qs,
                               u"The file %1 is a picture or a logo elsewhere already. Change the code."_qs)
                    .arg(target));
  WholeOrNothing(file, {{target}, {}}, connection_, [&] {
    CopyPicture(file, target);
    OfCopy(file, target, [](const QString& copy) { return ResizeImage(copy, PictureLimit()); });
    CreateThumbnail(target, ThumbnailLimit);
    const QSize size = OfCopy(file, target, MeasureImage);
    Transaction transaction(connection_, {"Immagine di %1", {CodiceProdotto_}});
    connection_.Execute(
        u"UPDATE Prodotti SET Immagine=?,Height=?,Width=? WHERE IDCatalogo=? AND CodiceProdotto=?"_qs,
        {target, size.height(), size.width(), IDCatalogo_, CodiceProdotto_});
    transaction.Commit();
  });
}

void PictureDrop::AddAdditional(const QString& file, const AskDescription& ask) {
  Recordset row;
  row.Open({.table = u"Immagini"_qs, .where = u"FALSE"_qs}, connection_);
  row.AddNew();
  const QString target = PicturePath(u"%1.jpg"_qs.arg(row.Value(u"IDImmagine"_qs).toLongLong()));
  WholeOrNothing(file, {{}, {target}}, connection_, [&] {
    CopyPicture(file, target);
    const ResizeResult sizes =
        OfCopy(file, target, [](const QString& copy) { return ResizeImage(copy, PictureLimit()); });
    if (sizes.source == sizes.target && ReadPictureSettings().reRender) ReRenderImage(target);
    const QSize size = OfCopy(file, target, MeasureImage);
    row.SetValue(u"IDCatalogo"_qs, IDCatalogo_);
    row.SetValue(u"CodiceProdotto"_qs, CodiceProdotto_);
    row.SetValue(u"Immagine"_qs, target);
    row.SetValue(u"Height"_qs, size.height());
    row.SetValue(u"Width"_qs, size.width());
    const QString description = ask(file);
    if (description.isEmpty()) {
      row.CancelUpdate();
      QFile::remove(target);
      return;
    }
    row.SetValue(u"Descrizione"_qs, description);
    row.Update();
  });
}

}  // namespace vorlina
