// The pictures of a publication: which files may be published, what they are called there, and in which sizes
// readers get them.
#pragma once

#include <IVorlinaPlugin.h>

#include <QByteArray>
#include <QHash>
#include <QSize>
#include <QString>
#include <QStringList>
#include <string>
#include <vector>

#include "CatalogSnapshot.h"

class QFileInfo;

namespace publishing {

// A picture in one size.
struct PublishedSize {
  QSize size;    // in pixels
  QString jpeg;  // "images/p-101_400w.jpg"
  QString webp;  // "images/p-101_400w.webp"; "" where it would not be smaller by a quarter
};

// A file that is published as it is.
struct PictureCopy {
  QString file;
  QString source;    // full path
  QByteArray stamp;  // changes when the source does
};

struct PublishedPicture {
  const Picture* picture = nullptr;
  QString file;                      // the largest one: "images/p-101.jpg", or the last of the sizes
  QSize size;                        // of this file, in pixels
  std::vector<PublishedSize> sizes;  // ascending, one at least
  std::vector<PictureCopy> copies;   // all files of it
  QByteArray stamp;                  // changes when one of them does

  // What goes into "srcset": "images/p-101_400w.jpg 300w, images/p-101_800w.jpg 600w".
  std::string JpegSet() const;
  // The same of the WebP files; "" unless there is one of every size, since a reader takes all from one set.
  std::string WebpSet() const;
};

// A square PNG picture made of the logo.
struct PublishedIcon {
  QString file;  // "images/icon-32.png"
  int side = 0;
  QByteArray stamp;
};

struct PictureRequest {
  const CatalogSnapshot* catalog = nullptr;
  // Of the products' files, by position, as PublishedNames gives them: "p-101"; "" where nothing of one is
  // published.
  QStringList names;
  QString folder;       // "Images" of the application folder: nothing else is published, whatever a row says
  QList<int> sizes;     // longer sides in pixels
  bool italian = true;  // the user's language
};

// What cannot be published is left out, and a note says why. The snapshot must outlive it.
class PublishedPictures {
 public:
  explicit PublishedPictures(const PictureRequest& request);
  // What is wanted knows where it goes.
  PublishedPictures(const PublishedPictures&) = delete;
  PublishedPictures& operator=(const PublishedPictures&) = delete;

  // Has the program make the sizes; on the thread of the user interface. False where the progress asked to
  // stop.
  bool Prepare(IVorlinaPictures& pictures, IVorlinaProgress& progress);

  // What there is once they are prepared.
  const std::vector<PublishedPicture>& Of(std::size_t product) const { return products_[product]; }
  // Null where there is none.
  const PublishedPicture* Logo() const { return logo_.empty() ? nullptr : &logo_.front(); }
  const PublishedPicture* Wide() const { return wide_.empty() ? nullptr : &wide_.front(); }
  const std::vector<PublishedIcon>& Icons() const { return icons_; }
  // The bytes of an icon; throws where the logo cannot be read any more. Any thread may call it.
  QByteArray Draw(const PublishedIcon& icon) const;
  const QList<VorlinaNote>& Notes() const { return notes_; }
  // False where something kept the program from making one; it may be gone the next time.
  bool AreAllMade() const { return allMade_; }

 private:
  // A picture that may be published, and where it goes.
  struct Wanted {
    const Picture* picture = nullptr;
    QString owner;  // the product's code, or ""
    QString name;   // "images/p-101"
    std::vector<PublishedPicture>* place = nullptr;
  };
  class Part;

  void Want(const Picture& picture, const QString& owner, const QString& name, std::vector<Wanted>& wanted,
            std::vector<PublishedPicture>& place);
  bool IsInside(const QFileInfo& file);
  QString FaultOf(const QString& source);
  void LeaveOut(const Wanted& wanted, const QString& why);
  bool Prepare(const std::vector<Wanted>& wanted, const QList<int>& sizes, IVorlinaPictures& pictures,
               IVorlinaProgress& progress);
  void Take(const Wanted& wanted, const VorlinaWebPictures& made, const QList<int>& sizes);
  void PlanIcons();

  QList<int> sizes_;
  QString root_;
  bool italian_;
  QHash<QString, QString> folders_;  // those that rows name, as they really are
  std::vector<Wanted> wantedOfProducts_, wantedLogo_, wantedWide_;
  std::vector<std::vector<PublishedPicture>> products_;
  std::vector<PublishedPicture> logo_, wide_;
  std::vector<PublishedIcon> icons_;
  QList<VorlinaNote> notes_;
  bool allMade_ = true;
};

}  // namespace publishing
