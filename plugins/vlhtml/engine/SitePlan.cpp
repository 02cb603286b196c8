#include "SitePlan.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include "JpegHead.h"
#include "PublishedNames.h"

namespace vlhtml {
namespace {

QString FileName(const QString& path) {
  return path.mid(std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\')) + 1);
}

// The pictures of this application folder. Each folder that a row names is looked up once.
class Pictures {
 public:
  Pictures(const QString& folder, bool italian)
      : root_(QFileInfo(folder).canonicalFilePath()), italian_(italian) {}

  // A picture that cannot be published is left out, and a warning says why. The thumbnail of a main picture
  // stands beside it, with "t" before its name.
  bool Plan(const Picture& picture, const QString& owner, const QString& name, bool main,
            PlannedPicture& planned, QStringList& warnings) {
    const QFileInfo source(picture.source);
    if (const QString fault = FaultOf(source); !fault.isEmpty()) {
      warnings += fault.arg(owner, QDir::toNativeSeparators(picture.source));
      return false;
    }
    planned.picture = &picture;
    planned.source = picture.source;
    planned.file = QStringLiteral("images/") + name + QStringLiteral(".jpg");
    planned.stamp = Stamp(source);
    planned.smallSource = planned.source;
    planned.smallFile = planned.file;
    const QFileInfo thumbnail(source.path() + QStringLiteral("/t") + FileName(picture.source));
    if (main && thumbnail.isFile() && FaultOf(thumbnail).isEmpty()) {
      planned.smallSource = thumbnail.filePath();
      planned.smallFile = QStringLiteral("images/t-") + name + QStringLiteral(".jpg");
      planned.smallStamp = Stamp(thumbnail);
    }
    return true;
  }

 private:
  QString Real(const QString& folder) {
    auto known = folders_.find(folder);
    if (known == folders_.end()) known = folders_.insert(folder, QFileInfo(folder).canonicalFilePath());
    return known.value();
  }

  bool IsInside(const QFileInfo& file) {
    const QString folder = file.isSymLink() ? QFileInfo(file.canonicalFilePath()).path() : Real(file.path());
    return !root_.isEmpty() && (folder == root_ || folder.startsWith(QString(root_ + u'/')));
  }

  QByteArray Stamp(const QFileInfo& file) {
    return (Real(file.path()).mid(root_.size()) + u'/' + file.fileName()).toUtf8() + '|' +
           QByteArray::number(file.size()) + '|' +
           QByteArray::number(file.lastModified().toMSecsSinceEpoch());
  }

  QString FaultOf(const QFileInfo& file) {
    const JpegFile kind = LookAtJpeg(file.filePath());
    if (kind == JpegFile::Missing)
      return italian_ ? QStringLiteral("%1: il file %2 non esiste")
                      : QStringLiteral("%1: the file %2 does not exist");
    if (!IsInside(file))
      return italian_ ? QStringLiteral("%1: il file %2 non sta nella cartella \"Images\"")
                      : QStringLiteral("%1: the file %2 does not lie in the folder \"Images\"");
    if (kind == JpegFile::Unreadable)
      return italian_ ? QStringLiteral("%1: il file %2 non si può leggere")
                      : QStringLiteral("%1: the file %2 cannot be read");
    if (kind == JpegFile::OtherKind)
      return italian_ ? QStringLiteral("%1: il file %2 non è un'immagine JPEG")
                      : QStringLiteral("%1: the file %2 is no JPEG picture");
    return {};
  }

  QString root_;
  bool italian_;
  QHash<QString, QString> folders_;
};

}  // namespace

QString PlannedList::PageFile(int page) const {
  return file + (page > 1 ? u'-' + QString::number(page) : QString()) + QStringLiteral(".html");
}

SitePlan::SitePlan(const CatalogSnapshot& snapshot, const QString& imagesFolder, const Languages& languages)
    : catalog(&snapshot) {
  Pictures pictures(imagesFolder, languages.italian);
  PublishedNames names;
  all.title = languages.siteItalian ? QStringLiteral("Tutti i prodotti") : QStringLiteral("All products");
  all.file = names.NameOf(QString(), QStringLiteral("products"));
  names.NameOf(QString(), QStringLiteral("index"));
  for (const FilterValue& value : snapshot.filterValues) {
    filterList.insert(value.id, int(filters.size()));
    filters.push_back({value.text, value.filter, {}, {}});
  }
  for (const Product& product : snapshot.products) {
    const int position = int(products.size());
    PlannedProduct planned;
    planned.product = &product;
    const QString name = names.NameOf(QStringLiteral("p-"), product.code);
    planned.file = name + QStringLiteral(".html");
    for (std::size_t i = 0; i < product.pictures.size(); ++i) {
      PlannedPicture picture;
      if (pictures.Plan(product.pictures[i], product.code,
                        i == 0 ? name : name + u'_' + QString::number(i + 1), i == 0, picture, warnings))
        planned.pictures.push_back(std::move(picture));
    }
    products.push_back(std::move(planned));
    all.products.push_back(position);
    for (const int id : product.filters)
      if (const auto list = filterList.constFind(id); list != filterList.constEnd())
        filters[std::size_t(*list)].products.push_back(position);
  }
  // Values without products get no page.
  std::vector<PlannedList> used;
  QHash<int, int> positions;
  for (const FilterValue& value : snapshot.filterValues) {
    PlannedList& list = filters[std::size_t(filterList[value.id])];
    if (list.products.empty()) continue;
    list.file = names.NameOf(QStringLiteral("f%1-").arg(list.filter), list.title);
    // Two values may have one text: each has its page.
    if (!positions.isEmpty() && std::any_of(used.begin(), used.end(), [&](const PlannedList& other) {
          return other.file == list.file;
        }))
      list.file = names.NameOf(QStringLiteral("f%1-").arg(list.filter),
                               list.title + QStringLiteral(" %1").arg(value.id));
    positions.insert(value.id, int(used.size()));
    used.push_back(std::move(list));
  }
  filters = std::move(used);
  filterList = std::move(positions);
  if (!snapshot.logo.source.isEmpty()) {
    PlannedPicture picture;
    if (pictures.Plan(snapshot.logo, QStringLiteral("Logo"), QStringLiteral("logo"), false, picture,
                      warnings))
      logo.push_back(std::move(picture));
  }
}

}  // namespace vlhtml
