#include "products/PictureDrop.h"

#include <QDir>

#include "base/Error.h"
#include "images/ImagePipeline.h"

namespace vorlina {
namespace {

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
    // A lookup that failed and gave nothing would have the picture that is there written over.
    const qint64 product = products_.Find(code_);
    const bool hasMainImage = !products_.ValueOf(product, u"Immagine"_qs).isNull();
    try {
      if (hasMainImage)
        AddImage(product, file, ask);
      else
        products_.SetMainImage(product, file, PrepareMainFile(file));
    } catch (const std::exception& error) {
      failures += FailureOf(file, error);
    }
  }
  return failures;
}

void PictureDrop::AddImage(qint64 product, const QString& file, const AskDescription& ask) {
  const PreparedPicture picture = PrepareAdditionalFile(file);
  const QString description = ask(file);
  if (!description.isEmpty()) products_.AddImage(product, file, picture, description);
}

}  // namespace vorlina
