#include "products/PictureImport.h"

#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QSet>
#include <filesystem>
#include <system_error>

#include "base/Settings.h"
#include "base/Texts.h"
#include "images/ImagePipeline.h"
#include "images/PictureFolder.h"
#include "store/Transaction.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(products, "vorlina.products", QtInfoMsg)

// The setting is a note for whoever looks into a failure: an import does not end for it.
void NoteLast(const QString& source) {
  try {
    SaveSetting(ApplicationTitle(), u"Riservati"_qs, u"LastProcessedJPG"_qs, source);
  } catch (const Error& error) {
    qCDebug(products) << "not noted" << error.Description();
  }
}

// The pictures of the folder that are not among the files: links that lead nowhere, devices, and names that
// are no text. Hidden files and folders are none.
QStringList PassedOverIn(const QString& folder, const QStringList& files) {
  const QSet<QString> known(files.begin(), files.end());
  QStringList names;
  std::error_code failure;
  for (std::filesystem::directory_iterator entry(QFileInfo(folder).filesystemFilePath(), failure), end;
       !failure && entry != end; entry.increment(failure)) {
    const QString name = QFileInfo(entry->path()).fileName();
    std::error_code unknown;
    if (!name.endsWith(u".jpg"_qs, Qt::CaseInsensitive) || name.startsWith(u'.') || known.contains(name) ||
        entry->is_directory(unknown))
      continue;
    names += name;
  }
  names.sort();
  return names;
}

}  // namespace

PictureImport::PictureImport(QString folder, int IDCatalogo, Connection& connection)
    : folder_(std::move(folder)),
      IDCatalogo_(IDCatalogo),
      connection_(connection),
      products_(IDCatalogo, connection) {
  const QDir directory(folder_);
  if (!directory.exists() || !QFileInfo(folder_).isReadable())
    throw Error(Texts::tr("Impossibile leggere la cartella %1").arg(QDir::toNativeSeparators(folder_)));
  files_ = directory.entryList({u"*.jpg"_qs}, QDir::Files, QDir::Name | QDir::IgnoreCase);
  passedOver_ = PassedOverIn(folder_, files_);
}

bool PictureImport::Run(const Progress& progress) {
  QStringList paths;
  for (const QString& file : files_) paths += QDir(folder_).filePath(file);
  PreparedPictures pictures(paths, PictureLimit(), ReadPictureSettings());
  for (const QString& path : paths) {
    if (progress && !progress(imported_, Count(), QFileInfo(path).fileName())) return false;
    ImportNext(QDir::toNativeSeparators(path), pictures);
    ++imported_;
  }
  if (progress) progress(imported_, Count(), QString());
  return true;
}

void PictureImport::ImportNext(const QString& source, PreparedPictures& pictures) {
  // It is waited for before the transaction, which keeps other programs from giving away the code.
  const PreparedPicture picture = pictures.Next();
  const QString name = QFileInfo(source).fileName();
  QString code;
  bool ending = false;
  try {
    Transaction transaction(connection_, {QT_TRANSLATE_NOOP("Texts", "Importazione di %1"), {name}});
    code = products_.FreePictureCode();
    const qint64 product = products_.Add({{u"CodiceProdotto"_qs, code}, {u"Descrizione"_qs, name.chopped(4)}},
                                         ProductMarks::Picture);
    const PictureChange pictureFiles = products_.SetMainImage(product, source, picture);
    // After the picture: what the setting names was imported whole, should the program end at the next one.
    NoteLast(source);
    ending = true;
    transaction.Commit();
    pictureFiles.RequireReplaced();
  } catch (...) {
    // A disk that fails at the very end has the product reported as failed, although it is there.
    if (ending && QFile::exists(MainImagePath(IDCatalogo_, code))) ++imported_;
    throw;
  }
}

}  // namespace vorlina
