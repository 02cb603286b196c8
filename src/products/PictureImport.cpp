#include "products/PictureImport.h"

#include <QCollator>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QLoggingCategory>
#include <QSet>
#include <algorithm>
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

bool EndsIn(const QString& name, const QString& ending) { return name.endsWith(ending, Qt::CaseInsensitive); }

QString ReasonOf(const std::filesystem::directory_entry& entry, const QString& name) {
  if (EndsIn(name, u".jpeg"_qs))
    return Texts::tr("il nome non finisce in .jpg: per importare il file va rinominato");
  if (!EndsIn(name, u".jpg"_qs)) return Texts::tr("non è un'immagine 'jpg'");
  if (QFile::encodeName(name) != QByteArray::fromStdString(entry.path().filename().string()))
    return Texts::tr("il nome contiene caratteri illeggibili: per importare il file va rinominato");
  std::error_code unknown;
  if (entry.is_symlink(unknown) && !entry.exists(unknown))
    return Texts::tr("è un collegamento che non porta a nessun file");
  return Texts::tr("non è un file");
}

// As file managers show them, also where the program was started without a language. Names that are the same
// but for letter case keep their order.
void SortAsShown(QStringList& files) {
  QCollator order(QLocale().language() == QLocale::C ? QLocale(QLocale::English) : QLocale());
  order.setNumericMode(true);
  order.setCaseSensitivity(Qt::CaseInsensitive);
  std::stable_sort(files.begin(), files.end(), [&](const QString& a, const QString& b) {
    return order.compare(a.chopped(4), b.chopped(4)) < 0;
  });
}

// What of the folder is not among the files.
std::vector<LeftOutFile> PassedOverIn(const QString& folder, const QStringList& files) {
  const QSet<QString> known(files.begin(), files.end());
  std::vector<LeftOutFile> leftOut;
  std::error_code failure;
  for (std::filesystem::directory_iterator entry(QFileInfo(folder).filesystemFilePath(), failure), end;
       !failure && entry != end; entry.increment(failure)) {
    const QString name = QFileInfo(entry->path()).fileName();
    std::error_code unknown;
    if (!name.startsWith(u'.') && !known.contains(name) && !entry->is_directory(unknown))
      leftOut.push_back({name, ReasonOf(*entry, name)});
  }
  std::sort(leftOut.begin(), leftOut.end(), [](const LeftOutFile& a, const LeftOutFile& b) {
    return QString::compare(a.name, b.name, Qt::CaseInsensitive) < 0;
  });
  return leftOut;
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
  files_ = directory.entryList({u"*.jpg"_qs}, QDir::Files, QDir::Name);
  SortAsShown(files_);
  passedOver_ = PassedOverIn(folder_, files_);
}

// What is being prepared when it ends early is given up before the end is told: joining the threads would
// have whoever looks wait for them.
bool PictureImport::Run(const Progress& progress, const PreparedPictures::Meanwhile& meanwhile) {
  QStringList paths;
  for (const QString& file : files_) paths += QDir(folder_).filePath(file);
  PreparedPictures pictures(paths, PictureLimit(), ReadPictureSettings());
  bool whole = false;
  std::exception_ptr failure;
  try {
    whole = ImportAll(progress, meanwhile, pictures);
  } catch (...) {
    failure = std::current_exception();
  }
  pictures.GiveUp(meanwhile);
  if (failure) std::rethrow_exception(failure);
  return whole;
}

bool PictureImport::ImportAll(const Progress& progress, const PreparedPictures::Meanwhile& meanwhile,
                              PreparedPictures& pictures) {
  for (const QString& file : files_) {
    if (progress && !progress(imported_, Count(), file)) return false;
    failed_ = file;
    // It is waited for before the transaction, which keeps other programs from giving away the code.
    const PreparedPicture picture = NextPicture(pictures, meanwhile);
    Store(QDir::toNativeSeparators(QDir(folder_).filePath(file)), picture);
    failed_.clear();
    ++imported_;
  }
  if (progress) progress(imported_, Count(), QString());
  return true;
}

PreparedPicture PictureImport::NextPicture(PreparedPictures& pictures,
                                           const PreparedPictures::Meanwhile& meanwhile) {
  isFileToBlame_ = true;
  PreparedPicture picture = pictures.Next(meanwhile);
  isFileToBlame_ = false;
  return picture;
}

void PictureImport::Store(const QString& source, const PreparedPicture& picture) {
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
    lastPicture_ = MainImagePath(IDCatalogo_, code);
  } catch (...) {
    // A disk that fails at the very end has the product reported as failed, although it is there.
    if (ending && QFile::exists(MainImagePath(IDCatalogo_, code))) ++imported_;
    throw;
  }
}

// Not where it has gone, as from a disk that was taken away.
bool PictureImport::IsFileToBlame() const {
  return isFileToBlame_ && QFileInfo::exists(QDir(folder_).filePath(failed_));
}

QString ImportedText(const PictureImport& import) {
  const QLocale locale;
  const int imported = import.Imported();
  QString text = imported == 1 ? Texts::tr("Importato 1 prodotto")
                               : Texts::tr("Importati %1 prodotti").arg(locale.toString(imported));
  if (imported == import.Count()) return text;
  text = Texts::tr("%1 su %2").arg(text, locale.toString(import.Count()));
  return imported == 0 ? text : Texts::tr("%1, l'ultimo dal file %2").arg(text, import.LastFile());
}

}  // namespace vorlina
