// Reads the description of a form: {"bodies": [...]}, each body with one of "wall", "solid", "board", "rod"
// and the material "mat". A body may be moved ("at"), turned ("turn", "tilt", "roll") and repeated about the
// axis
// ("ring").
#include <QJsonArray>

#include "Curve.h"
#include "Scene.h"
#include "base/Error.h"

namespace vorlina::studio {
namespace {

Vec VecOf(const QJsonValue& value) {
  const QJsonArray a = value.toArray();
  return {a[0].toDouble(), a[1].toDouble(), a[2].toDouble()};
}

// A number for both ends, or one for each.
std::pair<double, double> EndsOf(const QJsonValue& value, double fallback) {
  if (!value.isArray()) return {value.toDouble(fallback), value.toDouble(fallback)};
  return {value.toArray()[0].toDouble(), value.toArray()[1].toDouble()};
}

Material MaterialFor(const QJsonObject& body, const QJsonObject& form, const QJsonObject& presets) {
  const QJsonValue named = body.contains(u"mat") ? body[u"mat"] : form[u"mat"];
  QJsonObject own = named.toObject();
  const QString preset = named.isString() ? named.toString() : own[u"of"].toString();
  if (!preset.isEmpty()) {
    if (!presets.contains(preset)) throw Error(u"unknown material: "_qs + preset);
    QJsonObject merged = presets[preset].toObject();
    for (auto it = own.begin(); it != own.end(); ++it) merged[it.key()] = it.value();
    own = merged;
  }
  for (const QString& key : {u"paint"_qs, u"grain"_qs, u"phase"_qs})
    if (body.contains(key)) own[key] = body[key];
  return MaterialOf(own);
}

void ReadShape(Body& body, const QJsonObject& o) {
  if (o.contains(u"rod")) {
    body.kind = Body::Kind::Rod;
    body.rod = CurveThrough(o[u"rod"].toString(), 48);
    std::tie(body.rodStart, body.rodEnd) = EndsOf(o[u"thick"], 0.5);
    body.flat = o[u"flat"].toDouble(1);
    body.hollow = o[u"hollow"].toDouble();
    const double z = body.rod[0].z;
    if (std::all_of(body.rod.begin(), body.rod.end(), [z](Vec p) { return std::abs(p.z - z) < 1e-9; })) {
      auto [line, along] = DistanceGrid::Line(body.rod, 1.3 * std::max(body.rodStart, body.rodEnd));
      body.grid = std::make_shared<DistanceGrid>(std::move(line));
      body.along = std::make_shared<DistanceGrid>(std::move(along));
    } else {
      body.rod = CurveThrough(o[u"rod"].toString(), 10);  // looked up piece by piece
    }
  } else if (o.contains(u"board")) {
    body.kind = Body::Kind::Board;
    body.rounding = o[u"round"].toDouble(0.15);
    body.grid = std::make_shared<DistanceGrid>(
        DistanceGrid::Solid(CurveThrough(o[u"board"].toString(), 24), false, 0.05));
    body.halfThickness = o[u"thick"].toDouble(1) / 2;
  } else if (o.contains(u"wall")) {
    const auto [start, end] = EndsOf(o[u"thick"], 0.4);
    body.line = CurveThrough(o[u"wall"].toString(), 48);
    body.rounding = std::min(start, end) / 2;
    body.grid = std::make_shared<DistanceGrid>(DistanceGrid::Wall(body.line, start, end));
  } else {
    body.line = CurveThrough(o[u"solid"].toString(), 48);
    body.rounding = o[u"round"].toDouble(0.06);
    body.grid = std::make_shared<DistanceGrid>(DistanceGrid::Solid(body.line, true, body.rounding));
  }
  body.squareness = o[u"square"].toInt();
  body.aspect = o[u"aspect"].toDouble(1);
  body.flutes = o[u"flutes"].toDouble();
  body.fluteDepth = o[u"depth"].toDouble(0.03);
  body.twist = o[u"twist"].toDouble();
  body.blend = o[u"blend"].toDouble(body.kind == Body::Kind::Rod && !o.contains(u"blend") ? 0.5 : 0.0);
}

Box OwnBox(const Body& body) {
  Box box;
  if (body.kind == Body::Kind::Rod) {
    const double r = std::max(body.rodStart, body.rodEnd);
    for (const Vec& p : body.rod) {
      box.Add(p - Vec{r, r, r * body.flat});
      box.Add(p + Vec{r, r, r * body.flat});
    }
  } else if (body.kind == Body::Kind::Board) {
    const Vec low = body.grid->Low(), high = body.grid->High();
    box = {{low.x, low.y, -body.halfThickness}, {high.x, high.y, body.halfThickness}};
  } else {
    const double r = body.grid->High().x * (1 + (body.flutes > 0 ? body.fluteDepth : 0.0));
    box = {{-r, body.grid->Low().y, -r * body.aspect}, {r, body.grid->High().y, r * body.aspect}};
  }
  return box;
}

// Turns the body with its piece and gives the lowest point of it.
double Turn(Body& body, const Rotation& rotation) {
  body.rotation = Then(body.rotation, rotation);
  body.at = rotation.Apply(body.at);
  const Box own = OwnBox(body);
  const Vec middle = (own.low + own.high) * 0.5;
  body.middle = body.rotation.Apply(middle) + body.at;
  body.reach = Length(own.high - middle);
  const Vec half = own.high - middle;
  const Vec up = body.rotation.rows[1];
  if (body.kind != Body::Kind::Turned || body.squareness > 0)
    return body.middle.y - std::abs(up.x * half.x) - std::abs(up.y * half.y) - std::abs(up.z * half.z);
  const double leaning = std::hypot(up.x, up.z);
  double lowest = 1e9;
  for (const Vec& p : body.line) lowest = std::min(lowest, p.y * up.y - p.x * leaning);
  return body.at.y + lowest - body.rounding;
}

void Frame(const Body& body, Box& bounds, std::vector<Vec>& outline) {
  const Box own = OwnBox(body);
  const Vec half = (own.high - own.low) * 0.5;
  // A round body does not reach into the corners of its box.
  const double cut = body.kind == Body::Kind::Turned && body.squareness == 0 ? std::sqrt(0.5) : 1.0;
  for (int i = 0; i < 8; ++i) {
    const Vec corner{half.x * ((i & 1) != 0 ? cut : -cut), half.y * ((i & 2) != 0 ? 1 : -1),
                     half.z * ((i & 4) != 0 ? cut : -cut)};
    outline.push_back(body.middle + body.rotation.Apply(corner));
    const Vec full{corner.x / cut, corner.y, corner.z / cut};
    bounds.Add(body.middle + body.rotation.Apply(full));
  }
}

}  // namespace

void Scene::Add(const QJsonObject& form, const QJsonObject& presets, const Rotation& rotation, Vec at) {
  const size_t first = bodies_.size();
  double lowest = 1e9;
  for (const QJsonValue value : form[u"bodies"].toArray()) {
    const QJsonObject o = value.toObject();
    Body body;
    ReadShape(body, o);
    body.material = MaterialFor(o, form, presets);
    body.piece = pieces_;
    const Rotation own = RotationOf(o[u"turn"].toDouble(), o[u"tilt"].toDouble(), o[u"roll"].toDouble());
    const int copies = o[u"ring"].toInt(1);
    for (int i = 0; i < copies; ++i) {
      Body copy = body;
      const Rotation about = RotationOf(360.0 * i / copies, 0, 0);
      copy.rotation = Then(own, about);
      copy.at = about.Apply(VecOf(o[u"at"]));
      lowest = std::min(lowest, Turn(copy, rotation));
      bodies_.push_back(std::move(copy));
    }
  }
  const Vec move = at - Vec{0, lowest + 0.01, 0};
  for (size_t i = first; i < bodies_.size(); ++i) {
    bodies_[i].at += move;
    bodies_[i].middle += move;
    Frame(bodies_[i], bounds_, outline_);
  }
  ++pieces_;
}

}  // namespace vorlina::studio
