#include "SitePlan.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include "PublishedNames.h"

namespace vlhtml {
namespace {

QByteArray Stamp(const QFileInfo& file) {
  return file.filePath().toUtf8() + '|' + QByteArray::number(file.size()) + '|' +
         QByteArray::number(file.lastModified().toMSecsSinceEpoch());
}

QString FileName(const QString& path) {
  return path.mid(std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\')) + 1);
}

// The thumbnail of a main picture stands beside it, with "t" before its name. A picture whose file is gone is
// left out.
bool Plan(const Picture& picture, const QString& name, bool main, PlannedPicture& planned) {
  const QFileInfo source(picture.source);
  if (!source.isFile()) return false;
  planned.picture = &picture;
  planned.source = picture.source;
  planned.file = QStringLiteral("images/") + name + QStringLiteral(".jpg");
  planned.stamp = Stamp(source);
  planned.smallSource = planned.source;
  planned.smallFile = planned.file;
  const QFileInfo thumbnail(source.path() + QStringLiteral("/t") + FileName(picture.source));
  if (main && thumbnail.isFile()) {
    planned.smallSource = thumbnail.filePath();
    planned.smallFile = QStringLiteral("images/t-") + name + QStringLiteral(".jpg");
    planned.smallStamp = Stamp(thumbnail);
  }
  return true;
}

}  // namespace

QString PlannedList::PageFile(int page) const {
  return file + (page > 1 ? u'-' + QString::number(page) : QString()) + QStringLiteral(".html");
}

SitePlan::SitePlan(const CatalogSnapshot& snapshot, const Languages& languages) : catalog(&snapshot) {
  const QString missing = languages.italian ? QStringLiteral("%1: il file %2 non esiste")
                                            : QStringLiteral("%1: the file %2 does not exist");
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
      if (Plan(product.pictures[i], i == 0 ? name : name + u'_' + QString::number(i + 1), i == 0, picture))
        planned.pictures.push_back(std::move(picture));
      else
        warnings += missing.arg(product.code, QDir::toNativeSeparators(product.pictures[i].source));
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
    if (Plan(snapshot.logo, QStringLiteral("logo"), false, picture))
      logo.push_back(std::move(picture));
    else
      warnings += missing.arg(QStringLiteral("Logo"), QDir::toNativeSeparators(snapshot.logo.source));
  }
}

}  // namespace vlhtml
