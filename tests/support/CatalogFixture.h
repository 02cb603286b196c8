// An application folder with a catalog whose rows and pictures agree, and ways to compare folders.
#pragma once

#include <QDirIterator>
#include <QFileInfo>
#include <map>

#include "base/Error.h"
#include "base/SafeFile.h"
#include "catalogs/CatalogCheck.h"
#include "store/Transaction.h"
#include "support/StoreFixture.h"

namespace vorlina {

inline QByteArray ContentOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
}

// What a step tells when it fails; empty when it succeeds.
inline QString FailureOf(const std::function<void()>& step) {
  try {
    step();
  } catch (const std::exception& error) {
    return DescriptionOf(error);
  }
  return {};
}

// Every file below a folder by its relative name, hidden ones too.
inline std::map<QString, QByteArray> FilesIn(const QString& folder) {
  std::map<QString, QByteArray> files;
  QDirIterator found(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
  while (found.hasNext()) {
    const QString path = found.next();
    files[QDir(folder).relativeFilePath(path)] = ContentOf(path);
  }
  return files;
}

// The names that are in one of two folders alone, or with another content.
inline QStringList Differences(const std::map<QString, QByteArray>& a,
                               const std::map<QString, QByteArray>& b) {
  QStringList names;
  for (const auto& [name, content] : a)
    if (b.count(name) == 0 || b.at(name) != content) names += name;
  for (const auto& [name, content] : b)
    if (a.count(name) == 0) names += name;
  return names;
}

class CatalogFixture : public StoreFixture {
 protected:
  // What the check finds, each as its kind and its row or file.
  QStringList Findings() {
    QStringList all;
    for (const Finding& finding : CheckCatalogs(connection_))
      all += NameOf(finding.kind) + u' ' + finding.subject;
    return all;
  }
  // Writes one catalog of products, with pictures and thumbnails that begin with the mark. Pictures that are
  // there are replaced.
  void Fill(const QByteArray& mark, int products) {
    const auto write = [&](const QString& name) {
      QString path = QDir::toNativeSeparators(AppFile(u"Images/"_qs + name));
      WriteStagedFile(path, [&](QIODevice& device) {
        const QByteArray bytes = QByteArray(mark + name.toUtf8()).repeated(40);
        return device.write(bytes) == bytes.size();
      });
      return path;
    };
    Transaction transaction(connection_);
    connection_.Execute(u"INSERT INTO Cataloghi (IDCatalogo,NomeCatalogo,Logo) VALUES (109,?,?)"_qs,
                        {QString::fromUtf8(mark), write(u"109-Logo.jpg"_qs)});
    for (int i = 0; i < products; ++i) {
      const QString code = u"È %1"_qs.arg(i);
      AddProduct(109, code);
      SetImage(code, write(u"109-%1.jpg"_qs.arg(code)));
      write(u"t109-%1.jpg"_qs.arg(code));
    }
    connection_.Execute(
        u"INSERT INTO Immagini (IDImmagine,IDCatalogo,CodiceProdotto,Immagine) VALUES (7,109,'È 0',?)"_qs,
        {write(u"7.jpg"_qs)});
    transaction.Commit();
  }
  // The names of the files in "Images".
  QString PictureNames() const { return QDir(AppFile(u"Images"_qs)).entryList(QDir::Files).join(u' '); }
  QString Outside(const QString& name) const { return outside_.filePath(name); }

  const QTemporaryDir outside_;
};

}  // namespace vorlina
