#include "grid/GridLayout.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include "base/Error.h"
#include "base/SafeFile.h"
#include "base/Texts.h"

namespace vorlina {
namespace {

const char16_t Format[] = u"vorlina-grid-layout";
constexpr int Version = 1;

// A layout has some twenty columns; what is larger than this is none.
constexpr qint64 LargestFile = 1'000'000;
constexpr int WidestColumn = 10'000;
constexpr int HighestRow = 2'000;

[[noreturn]] void Refuse(const QString& why) {
  throw Error(Texts::tr("La disposizione della griglia non può essere letta: ") + why);
}

QJsonObject ObjectOf(const GridColumnLayout& column) {
  return {{u"key"_qs, column.key},           {u"width"_qs, column.width},
          {u"visible"_qs, column.visible},   {u"caption"_qs, column.caption},
          {u"wordWrap"_qs, column.wordWrap}, {u"alignment"_qs, int(column.alignment)}};
}

GridColumnLayout ColumnOf(const QJsonObject& object) {
  GridColumnLayout column;
  column.key = object[u"key"].toString();
  column.width = qBound(0, object[u"width"].toInt(), WidestColumn);
  column.visible = object[u"visible"].toBool(true);
  column.caption = object[u"caption"].toString();
  column.wordWrap = object[u"wordWrap"].toBool();
  const int alignment = object[u"alignment"].toInt();
  if (alignment >= 0 && alignment <= 2) column.alignment = GridAlignment(alignment);
  return column;
}

}  // namespace

QString LayoutText(const GridLayout& layout) {
  QJsonArray columns;
  for (const GridColumnLayout& column : layout.columns) columns += ObjectOf(column);
  const QJsonObject object{{u"format"_qs, QString::fromUtf16(Format)},
                           {u"version"_qs, Version},
                           {u"columns"_qs, columns},
                           {u"sort"_qs, layout.sortKey},
                           {u"descending"_qs, layout.descending},
                           {u"rowHeight"_qs, layout.rowHeight}};
  return QString::fromUtf8(QJsonDocument(object).toJson());
}

GridLayout ParseLayout(const QString& text) {
  QJsonParseError error;
  const QJsonObject object = QJsonDocument::fromJson(text.toUtf8(), &error).object();
  if (error.error != QJsonParseError::NoError) Refuse(Texts::tr("il testo è incompleto"));
  if (object[u"format"].toString() != QString::fromUtf16(Format)) Refuse(Texts::tr("è di un altro formato"));
  if (object[u"version"].toInt() != Version) Refuse(Texts::tr("è di un'altra versione"));
  GridLayout layout;
  QSet<QString> keys;
  for (const QJsonValue value : object[u"columns"].toArray()) {
    const GridColumnLayout column = ColumnOf(value.toObject());
    if (column.key.isEmpty() || keys.contains(column.key)) continue;
    keys.insert(column.key);
    layout.columns += column;
  }
  layout.sortKey = object[u"sort"].toString();
  layout.descending = object[u"descending"].toBool();
  layout.rowHeight = qBound(0, object[u"rowHeight"].toInt(), HighestRow);
  return layout;
}

void SaveLayout(const GridLayout& layout, const QString& path) {
  WriteFileSafely(path, LayoutText(layout).toUtf8());
}

GridLayout LoadLayout(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly) || file.size() > LargestFile) Refuse(QDir::toNativeSeparators(path));
  return ParseLayout(QString::fromUtf8(file.readAll()));
}

}  // namespace vorlina
