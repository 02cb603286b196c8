#include "products/PictureDrop.h"

#include "base/Error.h"
#include "images/ImagePipeline.h"
#include "products/ProductImages.h"

namespace vorlina {
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
        products_.SetMainImage(product, file, PrepareMainFile(file)).RequireReplaced();
    } catch (const std::exception& error) {
      failures += FailureOfFile(file, error);
    }
  }
  return failures;
}

void PictureDrop::AddImage(qint64 product, const QString& file, const AskDescription& ask) {
  const PreparedPicture picture = PrepareAdditionalFile(file);
  const QString description = ask(file);
  if (description.isEmpty()) return;
  ProductImages(IDCatalogo_, product, connection_).Add(file, picture, description);
}

}  // namespace vorlina
