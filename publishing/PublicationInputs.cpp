#include "PublicationInputs.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QFile>
#include <QFileInfo>
#include <QIODevice>

#include "FolderState.h"

#ifdef Q_OS_UNIX
#include <dlfcn.h>
#endif

namespace publishing {
namespace {

// All of it by name, so that none that comes to it is forgotten.
QDataStream& operator<<(QDataStream& stream, const VorlinaProfile& profile) {
  const auto& [identifier, name, language, address, accent, font, showLogo, logo, widePicture, pictureSizes,
               values, filters, techData, price, highlights, hours, mapLink, sisters] = profile;
  stream << identifier << name << language << address << accent << font << showLogo << logo << widePicture
         << pictureSizes << techData << price << highlights << hours << mapLink;
  for (const bool value : values) stream << value;
  for (const bool filter : filters) stream << filter;
  for (const VorlinaSister& sister : sisters) stream << sister.language << sister.address;
  return stream;
}

// The library that publishes, which knows how pages are made.
QString OwnLibrary() {
#ifdef Q_OS_UNIX
  Dl_info own{};
  if (::dladdr(reinterpret_cast<const void*>(&DigestOf), &own) != 0 && own.dli_fname != nullptr)
    return QFileInfo(QFile::decodeName(own.dli_fname)).canonicalFilePath();
#endif
  return {};
}

}  // namespace

QByteArray DigestOf(const PublicationInputs& inputs, const QString& database, const VorlinaJob& job) {
  const FileTime looked = Now();
  bool proven = true;
  QByteArray all;
  QDataStream stream(&all, QIODevice::WriteOnly);
  stream << QByteArray(VORLINA_VERSION) << job.IDCatalogo << job.target << job.profile << job.options
         << inputs.others << inputs.files << inputs.folders;
  const auto check = [&](const FileState& file) { proven = proven && file.time < LastProven(looked); };
  for (const QString& path : QStringList{database, OwnLibrary()} + inputs.files) {
    FileState file;
    StateOf(QFileInfo(path).path(), QFileInfo(path).fileName(), file);
    check(file);
    stream << quint64(file.state);
  }
  for (const QString& folder : inputs.folders) {
    StateSum sum;
    proven = proven && StatesBelow(folder, [&](const FileState& file, std::string_view) {
               check(file);
               sum.Add(file);
             });
    stream << quint64(sum.count) << quint64(sum.sum);
  }
  return proven ? QCryptographicHash::hash(all, QCryptographicHash::Sha1) : QByteArray();
}

}  // namespace publishing
