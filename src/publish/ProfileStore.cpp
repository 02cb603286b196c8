#include "publish/ProfileStore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRandomGenerator>
#include <QSet>
#include <algorithm>
#include <optional>

#include "base/Helpers.h"
#include "base/Texts.h"
#include "images/ImagePipeline.h"
#include "images/PictureFolder.h"
#include "images/PictureStore.h"
#include "publish/CatalogLanguage.h"
#include "publish/ExtensionManager.h"
#include "store/Connection.h"
#include "store/Transaction.h"

namespace vorlina {
namespace {

// A product's value: the identifiers of the profiles that bring it to the fore, with a blank between them.
const QString HighlightsExtension = QStringLiteral("Vorlina.Evidenza");
const QString DamagedExtension = QStringLiteral("Vorlina.Profili danneggiati");
const QString ProfilesMember = QStringLiteral("profiles");

constexpr qsizetype MostProfiles = 50;
// A picture of a profile is not published larger.
constexpr double LongestSide = 2000;
constexpr PictureSettings PictureQuality{true, true, 95};

QString RandomMark() { return QString::number(QRandomGenerator::system()->generate64() | 1ULL << 63, 36); }

void Keep(const QJsonObject& profiles, int IDCatalogo, Connection& connection) {
  KeepCatalogExtension(ProfilesExtension,
                       QString::fromUtf8(QJsonDocument(profiles).toJson(QJsonDocument::Compact)), IDCatalogo,
                       connection);
}

// What is kept of a catalog's profiles; pictures are names of files in "Images".
class KeptProfiles {
 public:
  // Throws DamagedProfiles.
  KeptProfiles(Connection& connection, int IDCatalogo) : connection_(connection), IDCatalogo_(IDCatalogo) {
    const QByteArray text = CatalogExtension(ProfilesExtension, IDCatalogo, connection).toUtf8();
    // A value that is empty hides what another one said.
    if (text.isEmpty() && !HasCatalogExtension(ProfilesExtension, IDCatalogo, connection)) return;
    const QJsonDocument document = QJsonDocument::fromJson(text);
    if (!document.isObject() || !document[ProfilesMember].isArray()) throw DamagedProfiles();
    root_ = document.object();
    const QJsonArray list = root_[ProfilesMember].toArray();
    if (list.isEmpty() || list.size() > MostProfiles) throw DamagedProfiles();
    for (const QJsonValue value : list) Read(value);
  }

  const QList<VorlinaProfile>& All() const { return profiles_; }

  qsizetype IndexOf(const QString& identifier) const {
    for (qsizetype i = 0; i < profiles_.size(); ++i)
      if (profiles_[i].identifier == identifier) return i;
    return -1;
  }

  QSet<QString> Pictures() const {
    QSet<QString> names;
    for (const VorlinaProfile& profile : profiles_) names += {profile.logo, profile.widePicture};
    names.remove(QString());
    return names;
  }

  void Put(const VorlinaProfile& profile) {
    const qsizetype place = IndexOf(profile.identifier);
    if (place < 0) {
      profiles_ += profile;
      objects_ += JsonOf(profile, {});
    } else {
      profiles_[place] = profile;
      objects_[place] = JsonOf(profile, objects_[place]);
    }
  }

  void Remove(qsizetype place) {
    profiles_.removeAt(place);
    objects_.removeAt(place);
  }

  void Store() {
    QJsonArray list;
    for (const QJsonObject& object : objects_) list += object;
    root_[ProfilesMember] = list;
    Keep(root_, IDCatalogo_, connection_);
  }

 private:
  // What is stored under an identifier is to be what is shown under it.
  void Read(const QJsonValue& value) {
    if (!value.isObject()) throw DamagedProfiles();
    const VorlinaProfile profile = ProfileOf(value.toObject());
    if (IndexOf(profile.identifier) >= 0) throw DamagedProfiles();
    profiles_ += profile;
    objects_ += value.toObject();
  }

  Connection& connection_;
  int IDCatalogo_;
  QJsonObject root_;
  QList<VorlinaProfile> profiles_;
  QList<QJsonObject> objects_;  // the same as they are kept
};

VorlinaProfile FirstProfile() {
  VorlinaProfile profile;
  profile.identifier = FirstProfileIdentifier;
  profile.name = Texts::tr("Standard");
  return profile;
}

QList<VorlinaProfile> ProfilesOr(const KeptProfiles& kept) {
  return kept.All().isEmpty() ? QList<VorlinaProfile>{FirstProfile()} : kept.All();
}

QString LanguageOf(Connection& connection, int IDCatalogo) {
  const QString stored = StoredLanguage(connection, IDCatalogo);
  return stored.isEmpty() ? ProposedLanguage(connection, IDCatalogo) : stored;
}

// The highlights of all profiles, by identifier.
QHash<QString, QStringList> Highlights(Connection& connection, int IDCatalogo) {
  QHash<QString, QStringList> highlights;
  Rows rows(connection,
            u"SELECT P.CodiceProdotto,X.Valore FROM Extensions E JOIN PExtension X USING (IDExtension) "
            "JOIN Prodotti P USING (IDCatalogo,CodiceProdotto) WHERE E.ExtensionName=? AND P.IDCatalogo=? "
            "AND P.Pubblica ORDER BY P.OrdineTemp IS NULL,P.OrdineTemp,P.IDProdotto"_qs,
            {HighlightsExtension, IDCatalogo});
  while (rows.Next())
    for (const QString& identifier : NullToEmpty(rows.Value(1)).split(u' ', Qt::SkipEmptyParts))
      highlights[identifier] += rows.Value(0).toString();
  return highlights;
}

// A picture on its way into "Images".
struct NewPicture {
  QString source;
  PreparedPicture picture;
};

NewPicture Prepare(const QString& file, const QString& member) {
  try {
    const QByteArray jpeg = ReadPictureFile(file);
    try {
      const FittedJpeg fitted = FitToLimit(jpeg, LongestSide, PictureQuality);
      return {file, {fitted.jpeg, {}, {}}};
    } catch (const Error& error) {
      RefuseFile(file, error.Description());
    }
  } catch (const Error& error) {
    throw ProfileRefusal(member, error.Description());
  }
}

// The pictures of one profile that is stored: those that are some profile's already keep their files.
class ProfilePictures {
 public:
  ProfilePictures(VorlinaProfile& profile, const QSet<QString>& kept) {
    Look(profile.logo, u"logo"_qs, kept);
    Look(profile.widePicture, u"widePicture"_qs, kept);
  }

  void Take(PictureChange& change, int IDCatalogo) {
    for (const auto& [name, file] : new_) {
      QString target;
      do target = ProfilePicturePath(IDCatalogo, RandomMark());
      while (QFileInfo::exists(target));
      change.Take(file.source, target, file.picture);
      *name = FileNameOf(target, true);
    }
  }

 private:
  void Look(QString& path, const QString& member, const QSet<QString>& kept) {
    if (path.isEmpty()) return;
    const QString name = folder_.NameOf(path);
    if (!name.isEmpty() && kept.contains(name))
      path = name;
    else
      new_.emplace_back(&path, Prepare(path, member));
  }

  PictureFolder folder_;
  std::vector<std::pair<QString*, NewPicture>> new_;
};

void RetirePictures(PictureChange& change, const QSet<QString>& former, const KeptProfiles& kept) {
  PictureFiles files;
  for (const QString& name : former - kept.Pictures()) files.others += PicturePath(name);
  change.Retire(files);
}

void RequireOwnName(const QList<VorlinaProfile>& profiles, const VorlinaProfile& profile) {
  for (const VorlinaProfile& other : profiles)
    if (other.identifier != profile.identifier && other.name.compare(profile.name, Qt::CaseInsensitive) == 0)
      throw ProfileRefusal(u"name"_qs, Texts::tr("C'è già un profilo di nome \"%1\"").arg(other.name));
}

// Changes the list of profiles in the marks of products.
void ChangeMarks(Connection& connection, int IDCatalogo, const QString& code, const QString& former,
                 const QString& identifier, bool marked) {
  QStringList identifiers = former.split(u' ', Qt::SkipEmptyParts);
  if (identifiers.contains(identifier) == marked) return;
  if (marked)
    identifiers += identifier;
  else
    identifiers.removeAll(identifier);
  if (!identifiers.isEmpty()) {
    if (!SetExtension(HighlightsExtension, identifiers.join(u' '), IDCatalogo, code, connection))
      throw Error(Texts::tr("Errore nella tabella Extensions"));
    return;
  }
  connection.Execute(
      u"DELETE FROM PExtension WHERE IDCatalogo=? AND CodiceProdotto=? AND IDExtension="
      "(SELECT IDExtension FROM Extensions WHERE ExtensionName=?)"_qs,
      {IDCatalogo, code, HighlightsExtension});
}

// The codes of products with their marks.
std::vector<std::pair<QString, QString>> Marks(Connection& connection, int IDCatalogo, bool publishedAlone) {
  std::vector<std::pair<QString, QString>> marks;
  Rows rows(connection,
            u"SELECT P.CodiceProdotto,X.Valore FROM Prodotti P LEFT JOIN PExtension X ON "
            "X.IDCatalogo=P.IDCatalogo AND X.CodiceProdotto=P.CodiceProdotto AND X.IDExtension="
            "(SELECT IDExtension FROM Extensions WHERE ExtensionName=?1) "
            "WHERE P.IDCatalogo=?2 AND (P.Pubblica OR NOT ?3)"_qs,
            {HighlightsExtension, IDCatalogo, publishedAlone});
  while (rows.Next()) marks.emplace_back(rows.Value(0).toString(), NullToEmpty(rows.Value(1)));
  return marks;
}

void StoreHighlights(Connection& connection, int IDCatalogo, const VorlinaProfile& profile) {
  const QSet<QString> marked(profile.highlights.begin(), profile.highlights.end());
  for (const auto& [code, marks] : Marks(connection, IDCatalogo, true))
    ChangeMarks(connection, IDCatalogo, code, marks, profile.identifier, marked.contains(code));
}

}  // namespace

QList<VorlinaProfile> ReadProfiles(Connection& connection, int IDCatalogo) {
  QList<VorlinaProfile> profiles = ProfilesOr(KeptProfiles(connection, IDCatalogo));
  const QHash<QString, QStringList> highlights = Highlights(connection, IDCatalogo);
  for (VorlinaProfile& profile : profiles) {
    if (profile.language.isEmpty()) profile.language = LanguageOf(connection, IDCatalogo);
    for (QString* picture : {&profile.logo, &profile.widePicture})
      if (!picture->isEmpty()) *picture = PicturePath(*picture);
    profile.highlights = highlights.value(profile.identifier);
  }
  std::sort(profiles.begin(), profiles.end(), [](const VorlinaProfile& a, const VorlinaProfile& b) {
    return QString::localeAwareCompare(a.name, b.name) < 0;
  });
  return profiles;
}

VorlinaProfile ReadProfile(Connection& connection, int IDCatalogo, const QString& nameOrIdentifier) {
  const QString name = nameOrIdentifier.simplified();
  QStringList names;
  const QList<VorlinaProfile> profiles = ReadProfiles(connection, IDCatalogo);
  for (const VorlinaProfile& profile : profiles) {
    if (profile.name.compare(name, Qt::CaseInsensitive) == 0) return profile;
    names += profile.name;
  }
  for (const VorlinaProfile& profile : profiles)
    if (profile.identifier == name) return profile;
  throw Error(Texts::tr("Il catalogo %1 non ha un profilo \"%2\". Ci sono: %3")
                  .arg(QString::number(IDCatalogo), name, names.join(u", ")));
}

QString StoreProfile(Connection& connection, int IDCatalogo, const VorlinaProfile& profile) {
  VorlinaProfile stored = GoodProfile(profile);
  // A picture is decoded before anything is begun.
  ProfilePictures pictures(stored, KeptProfiles(connection, IDCatalogo).Pictures());
  Transaction transaction(connection,
                          {QT_TRANSLATE_NOOP("Texts", "Profilo di pubblicazione %1"), {stored.name}});
  PictureChange change(transaction, connection);
  KeptProfiles kept(connection, IDCatalogo);
  const QSet<QString> former = kept.Pictures();
  if (stored.identifier.isEmpty()) stored.identifier = RandomMark();
  // The first one, that others come beside.
  if (kept.All().isEmpty() && stored.identifier != FirstProfileIdentifier) {
    VorlinaProfile first = FirstProfile();
    first.language = LanguageOf(connection, IDCatalogo);
    kept.Put(first);
  }
  RequireOwnName(kept.All(), stored);
  if (kept.IndexOf(stored.identifier) < 0 && kept.All().size() >= MostProfiles)
    throw ProfileRefusal(u"name"_qs, Texts::tr("Ci sono già %1 profili").arg(MostProfiles));
  pictures.Take(change, IDCatalogo);
  kept.Put(stored);
  kept.Store();
  StoreHighlights(connection, IDCatalogo, stored);
  RetirePictures(change, former, kept);
  transaction.Commit();
  return stored.identifier;
}

void DeleteProfile(Connection& connection, int IDCatalogo, const QString& identifier) {
  Transaction transaction(connection, {QT_TRANSLATE_NOOP("Texts", "Eliminazione di un profilo"), {}});
  PictureChange change(transaction, connection);
  KeptProfiles kept(connection, IDCatalogo);
  const qsizetype place = kept.IndexOf(identifier);
  if (place < 0) return;
  if (kept.All().size() == 1) throw Error(Texts::tr("È l'unico profilo del catalogo e non si può eliminare"));
  const QSet<QString> former = kept.Pictures();
  kept.Remove(place);
  kept.Store();
  RetirePictures(change, former, kept);
  for (const auto& [code, marks] : Marks(connection, IDCatalogo, false))
    ChangeMarks(connection, IDCatalogo, code, marks, identifier, false);
  transaction.Commit();
}

void RenewProfiles(Connection& connection, int IDCatalogo) {
  Transaction transaction(connection, {QT_TRANSLATE_NOOP("Texts", "Nuovi profili di pubblicazione"), {}});
  try {
    const KeptProfiles kept(connection, IDCatalogo);
    return;
  } catch (const DamagedProfiles&) {
    const QString aside = CatalogExtension(DamagedExtension, IDCatalogo, connection);
    const QString damaged = CatalogExtension(ProfilesExtension, IDCatalogo, connection);
    KeepCatalogExtension(DamagedExtension, aside.isEmpty() ? damaged : aside + u'\n' + damaged, IDCatalogo,
                         connection);
    VorlinaProfile first = FirstProfile();
    first.identifier = RandomMark();
    Keep({{ProfilesMember, QJsonArray{JsonOf(first, {})}}}, IDCatalogo, connection);
  }
  transaction.Commit();
}

}  // namespace vorlina
