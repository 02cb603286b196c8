#include "Picture.h"

#include <QCryptographicHash>
#include <QJsonArray>

#include "Camera.h"

namespace vorlina::studio {
namespace {

// Choices that differ from seed to seed and stay the same from run to run.
class Chooser {
 public:
  explicit Chooser(const QString& seed)
      : bytes_(QCryptographicHash::hash(seed.toUtf8(), QCryptographicHash::Sha256)) {}
  template <class T, size_t N>
  T Of(const T (&choices)[N]) {
    return choices[quint8(bytes_[next_++ % bytes_.size()]) % N];
  }

 private:
  QByteArray bytes_;
  qsizetype next_ = 0;
};

QString SizeFor(const Box& bounds, Chooser& choose) {
  static const char* const wide[] = {"1280x960", "1400x1050", "1200x900", "1360x1020"};
  static const char* const tall[] = {"960x1280", "1050x1400", "900x1200", "1020x1360"};
  static const char* const square[] = {"1200x1200", "1216x1216", "1240x1240"};
  const Vec size = bounds.high - bounds.low;
  const double aspect = std::max(size.x, 0.8 * size.z) / size.y;
  return QString::fromLatin1(aspect > 1.5   ? choose.Of(wide)
                             : aspect < 0.8 ? choose.Of(tall)
                                            : choose.Of(square));
}

void FillGaps(QJsonObject& view, const Box& bounds, Chooser& choose) {
  static const char* const lights[] = {"left", "right", "left", "top"};
  static const double pitches[] = {9, 12, 15, 18, 21};
  static const char* const backdrops[] = {"white", "sand", "mist", "sage", "sky", "blush", "grey", "straw"};
  const Vec size = bounds.high - bounds.low;
  const double lift = size.y < 0.45 * size.x  ? 14
                      : size.y > 1.6 * size.x ? -4
                                              : 3;  // low things are seen from higher
  const QString frame = SizeFor(bounds, choose);
  if (!view.contains(u"size")) view[u"size"] = frame;
  const QString light = QString::fromLatin1(choose.Of(lights));
  if (!view.contains(u"light")) view[u"light"] = light;
  const QString backdrop = QString::fromLatin1(choose.Of(backdrops));
  if (!view.contains(u"backdrop")) view[u"backdrop"] = backdrop;
  const double pitch = choose.Of(pitches) + lift;
  if (!view.contains(u"pitch")) view[u"pitch"] = pitch;
}

}  // namespace

QImage TakeSamplePicture(const QJsonObject& composition, const QJsonObject& presets) {
  QJsonObject view = composition[u"view"].toObject();
  Chooser choose(composition[u"seed"].toString());
  Scene scene;
  const double viewTurn = view[u"turn"].toDouble(-20);
  const Rotation turned = RotationOf(viewTurn, 0, 0);
  for (const QJsonValue value : composition[u"pieces"].toArray()) {
    const QJsonObject piece = value.toObject();
    const QJsonArray at = piece[u"at"].toArray();
    const Rotation own =
        RotationOf(piece[u"turn"].toDouble(), piece[u"tilt"].toDouble(), piece[u"roll"].toDouble());
    const Vec place{at[0].toDouble(), at.size() > 2 ? at[1].toDouble() : 0.0,
                    at[at.size() > 2 ? 2 : 1].toDouble()};
    scene.Add(piece[u"form"].toObject(), presets, Then(own, turned), place);
  }
  FillGaps(view, scene.Bounds(), choose);
  const Studio studio(scene, view);
  return TakePicture(Tracer(scene, studio), Camera(scene, view));
}

}  // namespace vorlina::studio
