#include "products/PictureImport.h"

#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QSet>
#include <filesystem>
#include <system_error>

#include "base/Settings.h"
#include "images/ImagePipeline.h"
#include "products/NewCode.h"
#include "publish/ExtensionManager.h"
#include "store/Connection.h"
#include "store/Transaction.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(products, "vorlina.products", QtInfoMsg)

// The picture itself, or the file as it is.
void StorePicture(const QString& source, const QString& target, const PreparedPicture& picture) {
  if (picture.jpeg.isEmpty())
    CopyPicture(source, target);
  else
    WritePicture(target, picture.jpeg);
}

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
    : folder_(std::move(folder)), IDCatalogo_(IDCatalogo), connection_(connection) {
  const QDir directory(folder_);
  if (!directory.exists() || !QFileInfo(folder_).isReadable())
    throw Error(EitherLanguage(u"Impossibile leggere la cartella %1"_qs, u"The folder %1 cannot be read"_qs)
                    .arg(QDir::toNativeSeparators(folder_)));
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
  PictureFiles made;
  bool marked = true;
  bool ending = false;
  try {
    Transaction transaction(connection_);
    const QString code = FreeCode();
    const QString target = MainImagePath(IDCatalogo_, code);
    made.main += target;
    StorePicture(source, target, picture);
    // After the picture: what the setting names was imported whole, should the program end at the next one.
    NoteLast(source);
    StoreThumbnail(target, picture.thumbnail);
    marked = InsertProduct(code, QFileInfo(source).fileName().chopped(4), target, picture.size);
    ending = true;
    transaction.Commit();
  } catch (...) {
    RemoveUnnamedPictures(made, connection_);
    // A disk that fails at the very end has the product reported as failed, although it is there.
    if (ending && QFile::exists(made.main.first())) ++imported_;
    throw;
  }
  if (!marked) TellFaultyExtensions();
}

// A number whose file no row names: a product may have been given another code since.
QString PictureImport::FreeCode() const {
  for (QString code;;) {
    code = NuovoCodice(IDCatalogo_, connection_, code.toLongLong());
    const QString target = MainImagePath(IDCatalogo_, code);
    if (!QFile::exists(target) || !IsPictureNamed(target, connection_)) return code;
  }
}

bool PictureImport::InsertProduct(const QString& code, const QString& description, const QString& target,
                                  QSize size) {
  connection_.Execute(
      u"INSERT INTO PRODOTTI (IDCATALOGO,CODICEPRODOTTO,DESCRIZIONE,IMMAGINE,HEIGHT,WIDTH) "
      "VALUES (?,?,?,?,?,?)"_qs,
      {IDCatalogo_, code, description, target, size.height(), size.width()});
  return SetExtension(ImmagineModificata, u"1"_qs, IDCatalogo_, code, connection_);
}

}  // namespace vorlina
