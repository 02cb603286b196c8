// A random key that is kept with a catalog, by which a folder's site is known as this catalog's: two
// databases may each have a catalog of the same number, and a copy of a catalog has the key of its original.
// Only digests of it are published.
#pragma once

#include <QByteArray>
#include <QString>

class IVorlinaConnection;

namespace publishing {

class SiteKey {
 public:
  // Reads the key, or draws one that Keep() then stores. What different plug-ins publish of a catalog are
  // different sites.
  SiteKey(IVorlinaConnection& connection, int IDCatalogo, const QString& plugin);
  // False when another program kept one first: by that one its site is known.
  bool Keep(IVorlinaConnection& connection) const;
  // The name of the site, and the digest of a text that nobody can guess the text from.
  const QByteArray& Site() const { return site_; }
  QByteArray Digest(const QByteArray& text) const;

 private:
  int IDCatalogo_;
  QByteArray key_, site_;
  bool kept_;
};

}  // namespace publishing
