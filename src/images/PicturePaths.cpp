#include "images/PicturePaths.h"

#include <QDir>
#include <QFile>
#include <algorithm>
#include <vector>

#include "base/AppPath.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/SafeFile.h"
#include "base/Texts.h"
#include "images/ImagePipeline.h"
#include "images/PictureFolder.h"
#include "images/PictureStore.h"
#include "store/CatalogDatabase.h"
#include "store/Connection.h"
#include "store/SampleData.h"
#include "store/Transaction.h"

namespace vorlina {
namespace {

struct StoredPath {
  SamplePath column;
  qint64 row;
  QString path;
};

// The paths that are not written as those in "Images" are. All paths of a catalog begin alike, so that the
// comparison of a range is all that most rows cost.
std::vector<StoredPath> PathsElsewhere(Connection& connection) {
  const QString first = PicturePath({});
  QString behind = first;
  behind.back() = QChar(behind.back().unicode() + 1);
  std::vector<StoredPath> paths;
  for (const SamplePath& column : SamplePaths) {
    Rows rows(connection,
              u"SELECT rowid,%2 FROM %1 WHERE (%2<?1 OR %2>=?2) AND %2<>''"_qs.arg(
                  QString::fromUtf16(column.table), QString::fromUtf16(column.column)),
              {first, behind});
    while (rows.Next()) paths.push_back({column, rows.Value(0).toLongLong(), rows.Value(1).toString()});
  }
  return paths;
}

// Whether the path is that of a picture of an application folder, this one or another.
bool IsOfSomeFolder(const QString& path) {
  const QString folder = FolderOf(path).chopped(1);
  return folder.endsWith(u"/Images"_qs, Qt::CaseInsensitive) ||
         folder.endsWith(u"\\Images"_qs, Qt::CaseInsensitive);
}

struct Move {
  StoredPath stored;
  QString target;
};

// The file in "Images" that a path from elsewhere is to become; "" where it names one already, or there is
// none.
QString TargetOf(const QString& path, PictureFolder& folder) {
  if (folder.Holds(path)) return {};
  const QString name = FileNameOf(path, true);
  return !name.isEmpty() && IsPictureFile(PicturePath(name)) ? PicturePath(name) : QString();
}

std::vector<Move> MovesOf(const std::vector<StoredPath>& paths, Connection& connection) {
  PictureFolder folder;
  std::vector<Move> moves;
  std::vector<Move> own;
  QStringList ownTargets;
  QSet<QString> taken;
  for (const StoredPath& stored : paths) {
    const QString target = TargetOf(stored.path, folder);
    if (target.isEmpty()) continue;
    if (IsOfSomeFolder(stored.path)) {
      taken.insert(target);
      moves.push_back({stored, target});
    } else {
      ownTargets += target;
      own.push_back({stored, target});
    }
  }
  if (own.empty()) return moves;
  taken += NamedPictures(ownTargets, connection);
  for (Move& move : own) {
    if (taken.contains(move.target)) continue;
    taken.insert(move.target);
    moves.push_back(std::move(move));
  }
  return moves;
}

// Whoever else has changed the row meanwhile knows better.
int Make(const std::vector<Move>& moves, Connection& connection) {
  int changed = 0;
  for (const Move& move : moves) {
    connection.Execute(
        u"UPDATE %1 SET %2=? WHERE rowid=? AND %2=?"_qs.arg(QString::fromUtf16(move.stored.column.table),
                                                            QString::fromUtf16(move.stored.column.column)),
        {move.target, move.stored.row, move.stored.path});
    changed += connection.Changes();
  }
  return changed;
}

int Fit(Connection& connection) {
  std::vector<StoredPath> paths = PathsElsewhere(connection);
  if (paths.empty() || !IsDatabaseWritable(connection)) return 0;
  const auto others = std::partition(paths.begin(), paths.end(), [](const StoredPath& stored) {
    return stored.path.startsWith(SampleDataRoot, Qt::CaseInsensitive);
  });
  const int samples = int(others - paths.begin());
  paths.erase(paths.begin(), others);
  const std::vector<Move> moves = MovesOf(paths, connection);
  if (samples == 0 && moves.empty()) return 0;
  Transaction transaction(
      connection, {QT_TRANSLATE_NOOP("Texts", "Percorsi delle immagini adattati a questa cartella"), {}});
  if (samples > 0) RebaseAllSampleData(connection, AppPath());
  const int changed = samples + Make(moves, connection);
  transaction.Commit();
  return changed;
}

// The size of a picture, none where there is no whole one.
QSize SizeOf(const QString& path) {
  try {
    return MeasureWholeImage(path);
  } catch (const Error&) {
    return {};
  }
}

// Whether a row that names the picture has the size of the one beside it, and not its own.
bool IsOfTheRow(const QString& path, const QString& staged, Connection& connection) {
  Rows rows(connection,
            u"SELECT Width,Height FROM Prodotti WHERE Immagine=?1 "
            "UNION ALL SELECT Width,Height FROM Cataloghi WHERE Logo=?1 "
            "UNION ALL SELECT Width,Height FROM Immagini "
            "WHERE Immagine=?1"_qs,
            {path});
  if (!rows.Next()) return false;
  const QSize stored(rows.Value(0).toInt(), rows.Value(1).toInt());
  return SizeOf(staged) == stored && SizeOf(path) != stored;
}

// A kill may have come between a row and the picture that was to take another one's place. Of two pictures of
// one size nothing tells which is the row's, and both stay. A main picture goes before its thumbnail.
void FinishReplacing(Connection& connection) {
  const QString ending = StagedPath({});
  const QStringList names =
      QDir(PicturePath({})).entryList({u'*' + ending}, QDir::Files | QDir::Hidden, QDir::Name);
  QStringList thumbnails;
  const auto finish = [](const QString& path) { MoveFileSafely(StagedPath(path), path); };
  for (const QString& name : names) {
    const QString path = PicturePath(name.chopped(ending.size()));
    if (IsOfTheRow(path, StagedPath(path), connection)) finish(path);
    if (name.startsWith(u't')) thumbnails += name.chopped(ending.size());
  }
  for (const QString& name : thumbnails) {
    const QString main = PicturePath(name.mid(1));
    if (IsPictureFile(main) && !QFile::exists(StagedPath(main)) &&
        QFile::exists(StagedPath(PicturePath(name))))
      finish(PicturePath(name));
  }
}

}  // namespace

int FitPicturePaths(Connection& connection) {
  try {
    FinishReplacing(connection);
    return Fit(connection);
  } catch (const Error& error) {
    throw Error(Texts::tr("I percorsi delle immagini non sono stati adattati a questa cartella; alla "
                          "prossima apertura si riprova. %1")
                    .arg(error.Description()));
  }
}

}  // namespace vorlina
