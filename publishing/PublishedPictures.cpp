#include "PublishedPictures.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <algorithm>

#include "PublishError.h"

namespace publishing {
namespace {

const QList<int> UsualSizes = {400, 800};
constexpr int SmallestSize = 16;
constexpr int LargestSize = 4000;
const QList<int> LogoSizes = {200, 400};
const QList<int> WideSizes = {800, 1600};

QList<int> Sensible(QList<int> sizes) {
  for (int& size : sizes) size = std::clamp(size, SmallestSize, LargestSize);
  std::sort(sizes.begin(), sizes.end());
  sizes.erase(std::unique(sizes.begin(), sizes.end()), sizes.end());
  return sizes.isEmpty() ? UsualSizes : sizes;
}

std::string SetOf(const std::vector<PublishedSize>& sizes, QString PublishedSize::*file) {
  QStringList set;
  for (const PublishedSize& size : sizes) {
    if ((size.*file).isEmpty()) return {};
    set += size.*file + u' ' + QString::number(size.size.width()) + u'w';
  }
  return set.join(QStringLiteral(", ")).toStdString();
}

}  // namespace

// A step of a longer work: what it reports is told as a part of the whole.
class PublishedPictures::Part : public IVorlinaProgress {
 public:
  Part(IVorlinaProgress& whole, int before, int total) : whole_(whole), before_(before), total_(total) {}
  bool Report(int done, int, const QString& step) override {
    return whole_.Report(before_ + done, total_, step);
  }

 private:
  IVorlinaProgress& whole_;
  int before_;
  int total_;
};

std::string PublishedPicture::JpegSet() const { return SetOf(sizes, &PublishedSize::jpeg); }
std::string PublishedPicture::WebpSet() const { return SetOf(sizes, &PublishedSize::webp); }

PublishedPictures::PublishedPictures(const PictureRequest& request)
    : sizes_(Sensible(request.sizes)),
      root_(QFileInfo(request.folder).canonicalFilePath()),
      italian_(request.italian) {
  const CatalogSnapshot& catalog = *request.catalog;
  products_.resize(catalog.products.size());
  for (std::size_t i = 0; i < products_.size(); ++i) {
    const Product& product = catalog.products[i];
    const QString name = request.names.value(qsizetype(i));
    if (name.isEmpty()) continue;
    for (std::size_t k = 0; k < product.pictures.size(); ++k)
      Want(product.pictures[k], product.code, k == 0 ? name : name + u'_' + QString::number(k + 1),
           wantedOfProducts_, products_[i]);
  }
  Want(catalog.logo, {}, QStringLiteral("logo"), wantedLogo_, logo_);
  Want(catalog.widePicture, {}, QStringLiteral("wide"), wantedWide_, wide_);
}

void PublishedPictures::Want(const Picture& picture, const QString& owner, const QString& name,
                             std::vector<Wanted>& wanted, std::vector<PublishedPicture>& place) {
  if (picture.source.isEmpty()) return;
  const Wanted one{&picture, owner, QStringLiteral("images/") + name, &place};
  if (const QString fault = FaultOf(picture.source); fault.isEmpty())
    wanted.push_back(one);
  else
    LeaveOut(one, fault);
}

bool PublishedPictures::IsInside(const QFileInfo& file) {
  const QString path = file.path();
  auto known = folders_.find(path);
  if (known == folders_.end()) known = folders_.insert(path, QFileInfo(path).canonicalFilePath());
  const QString folder = file.isSymLink() ? QFileInfo(file.canonicalFilePath()).path() : known.value();
  return !root_.isEmpty() && (folder == root_ || folder.startsWith(QString(root_ + u'/')));
}

QString PublishedPictures::FaultOf(const QString& source) {
  const QFileInfo file(source);
  QString fault;
  if (!file.exists())
    fault = italian_ ? QStringLiteral("Il file %1 non esiste") : QStringLiteral("The file %1 does not exist");
  else if (!IsInside(file))
    fault = italian_ ? QStringLiteral("Il file %1 non sta nella cartella \"Images\"")
                     : QStringLiteral("The file %1 does not lie in the folder \"Images\"");
  return fault.isEmpty() ? fault : fault.arg(QDir::toNativeSeparators(source));
}

void PublishedPictures::LeaveOut(const Wanted& wanted, const QString& why) {
  QString whose;
  if (wanted.place == &logo_) whose = QStringLiteral("Logo: ");
  if (wanted.place == &wide_)
    whose = italian_ ? QStringLiteral("Immagine larga: ") : QStringLiteral("Wide picture: ");
  notes_.append({VorlinaNote::Kind::Picture, wanted.owner, whose + why});
}

bool PublishedPictures::Prepare(IVorlinaPictures& pictures, IVorlinaProgress& progress) {
  const int logo = int(wantedLogo_.size());
  const int wide = int(wantedWide_.size());
  const int total = logo + wide + int(wantedOfProducts_.size());
  Part first(progress, 0, total);
  Part second(progress, logo, total);
  Part third(progress, logo + wide, total);
  const bool complete = Prepare(wantedLogo_, LogoSizes, pictures, first) &&
                        Prepare(wantedWide_, WideSizes, pictures, second) &&
                        Prepare(wantedOfProducts_, sizes_, pictures, third);
  PlanIcons();
  return complete;
}

bool PublishedPictures::Prepare(const std::vector<Wanted>& wanted, const QList<int>& sizes,
                                IVorlinaPictures& pictures, IVorlinaProgress& progress) {
  if (wanted.empty()) return true;
  QStringList sources;
  sources.reserve(qsizetype(wanted.size()));
  for (const Wanted& one : wanted) sources += one.picture->source;
  const QList<VorlinaWebPictures> made = pictures.Prepare(sources, sizes, progress);
  if (made.size() != sources.size()) return false;
  for (std::size_t i = 0; i < wanted.size(); ++i) Take(wanted[i], made[qsizetype(i)], sizes);
  return true;
}

void PublishedPictures::Take(const Wanted& wanted, const VorlinaWebPictures& made, const QList<int>& sizes) {
  if (made.pictures.isEmpty()) {
    allMade_ = false;
    return LeaveOut(wanted, made.fault);
  }
  PublishedPicture picture;
  picture.picture = wanted.picture;
  const bool allWebp = std::all_of(made.pictures.begin(), made.pictures.end(),
                                   [](const VorlinaWebPicture& size) { return !size.webp.isEmpty(); });
  for (qsizetype i = 0; i < made.pictures.size(); ++i) {
    const VorlinaWebPicture& from = made.pictures[i];
    // No product's name has '_', and no further picture's number a letter behind it.
    const QString name = wanted.name + u'_' + QString::number(sizes[i]) + u'w';
    const QByteArray stamp = made.stamp + '|' + QByteArray::number(sizes[i]);
    PublishedSize size{from.size, name + QStringLiteral(".jpg"), {}};
    picture.copies.push_back({size.jpeg, from.jpeg, stamp});
    if (allWebp) {
      size.webp = name + QStringLiteral(".webp");
      picture.copies.push_back({size.webp, from.webp, stamp + "|webp"});
    }
    picture.sizes.push_back(size);
  }
  picture.file = picture.sizes.back().jpeg;
  picture.size = picture.sizes.back().size;
  picture.stamp = made.stamp;
  if (!made.full.jpeg.isEmpty()) {
    picture.file = wanted.name + QStringLiteral(".jpg");
    picture.size = made.full.size;
    const bool isOriginal = made.full.jpeg == wanted.picture->source;
    picture.copies.push_back({picture.file, made.full.jpeg, made.stamp + (isOriginal ? "|full" : "|bare")});
  }
  wanted.place->push_back(std::move(picture));
}

void PublishedPictures::PlanIcons() {
  icons_.clear();
  if (logo_.empty()) return;
  for (const int side : {32, 180})
    icons_.push_back({QStringLiteral("images/icon-%1.png").arg(side), side,
                      logo_[0].stamp + '|' + QByteArray::number(side)});
}

QByteArray PublishedPictures::Draw(const PublishedIcon& icon) const {
  const auto& copies = logo_.front().copies;
  const auto source = std::find_if(copies.begin(), copies.end(), [&](const PictureCopy& copy) {
    return copy.file == logo_.front().sizes.back().jpeg;
  });
  const QImage logo = QImageReader(source->source, "jpeg").read();
  if (logo.isNull())
    throw About(source->source, italian_, QStringLiteral("L'immagine %1 non si può leggere"),
                QStringLiteral("The picture %1 cannot be read"));
  QImage drawn(icon.side, icon.side, QImage::Format_ARGB32_Premultiplied);
  drawn.fill(Qt::white);  // a JPEG has no other ground, and telephones make a transparent one black
  const QImage fitted = logo.scaled(drawn.size(), Qt::KeepAspectRatio, Qt::SmoothTransformation);
  QPainter painter(&drawn);
  painter.drawImage((icon.side - fitted.width()) / 2, (icon.side - fitted.height()) / 2, fitted);
  painter.end();
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  drawn.save(&buffer, "png");
  return bytes;
}

}  // namespace publishing
