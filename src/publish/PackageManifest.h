// What a package of a plug-in says of itself: a JSON text in the package, which is kept beside the plug-in
// once that is installed. The names of its files are relative to "PubWiz": the library, and what lies in the
// folder named after the plug-in's identifier.
#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

namespace vorlina {

struct PackagedFile {
  QString name;
  qint64 size = 0;
  QByteArray hash;  // SHA-256, in hexadecimal digits
};

struct PackageManifest {
  QString identifier;
  QString version;
  QString interface;  // that the library was built for
  QString qt;         // major and minor
  QString platform;   // system, processor and C++ library
  std::vector<PackagedFile> files;

  const PackagedFile* Find(const QString& name) const;
};

// Names that have a place in a package of this plug-in.
QString LibraryOfPlugin(const QString& identifier);
bool IsNameOfPlugin(const QString& name, const QString& identifier);

// The platform that this program was built for.
QString OwnPlatform();

QByteArray JsonOf(const PackageManifest& manifest);
// Throws Error for what is no manifest, has another format, or has a name that has no place in it.
PackageManifest ManifestFrom(const QByteArray& json);

// Throws Error, which says why, where the plug-in cannot run in this program.
void RequireUsable(const PackageManifest& manifest);

}  // namespace vorlina
