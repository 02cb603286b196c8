#include "publish/ProfileForm.h"

#include <QJsonArray>
#include <QRegularExpression>
#include <QUrl>
#include <algorithm>

#include "base/Texts.h"
#include "images/PictureStore.h"
#include "publish/CatalogLanguage.h"

namespace vorlina {
namespace {

constexpr qsizetype LongestName = 100;
constexpr qsizetype LongestAddress = 2000;
constexpr qsizetype LongestHours = 2000;
constexpr qsizetype MostSizes = 4;
constexpr qsizetype MostSisters = 20;
constexpr int SmallestSize = 100;
constexpr int LargestSize = 2000;

const QList<int> UsualSizes = VorlinaProfile().pictureSizes;

bool IsSize(int size) { return size >= SmallestSize && size <= LargestSize; }
bool IsFont(const QString& font) {
  return font.isEmpty() || QStringList{u"sans"_qs, u"serif"_qs, u"mono"_qs}.contains(font);
}
bool IsPrice(int price) { return price >= VorlinaProfile::NoPrice && price <= 3; }
bool IsSister(const VorlinaSister& sister) {
  return LanguageCodes().contains(sister.language) && IsWebAddress(sister.address);
}
// What is put behind it is the name of a page.
bool IsBase(const QString& address) {
  const QUrl url(address);
  return IsWebAddress(address) && !url.hasQuery() && !url.hasFragment();
}

// Who copies the address of the first page from a browser may have its file with it. What is refused is told
// as it was typed.
QString Base(QString address) {
  if (!IsBase(address)) return address;
  static const QRegularExpression page(u"/index\\.html?$"_qs, QRegularExpression::CaseInsensitiveOption);
  address.replace(page, u"/"_qs);
  return address.endsWith(u'/') ? address : address + u'/';
}

void Require(bool good, const QString& member, const QString& why) {
  if (!good) throw ProfileRefusal(member, why);
}

// Why an address is refused, at best by the character that is to blame. What stands in `more` no address of
// its kind may have. A blank is told as it was typed.
QString FaultOf(const QString& address, const QString& more) {
  const QString told = address.left(200).replace(u"%20"_qs, u" "_qs);
  if (address.size() > LongestAddress)
    return Texts::tr("L'indirizzo \"%1\" ha più di %2 caratteri").arg(told, QString::number(LongestAddress));
  const QString scheme = address.section(u"://"_qs, 0, 0).toLower();
  if (scheme != u"http" && scheme != u"https")
    return Texts::tr("L'indirizzo \"%1\" non comincia con https:// o http://").arg(told);
  const QString unfit = u" \t\"<>\\^`{|}"_qs + more;
  const auto bad = std::find_if(address.begin(), address.end(), [&](QChar c) { return unfit.contains(c); });
  if (bad != address.end())
    return Texts::tr("L'indirizzo \"%1\" non può contenere \"%2\"").arg(told, QString(*bad));
  return Texts::tr("\"%1\" non è un indirizzo web come https://www.example.it/catalogo/").arg(told);
}

void RequireTexts(const VorlinaProfile& profile) {
  const QString fault = FaultOfProfileName(profile.name);
  Require(fault.isEmpty(), u"name"_qs, fault);
  Require(profile.hours.size() <= LongestHours, u"hours"_qs,
          Texts::tr("Gli orari hanno più di %1 caratteri").arg(LongestHours));
  Require(LanguageCodes().contains(profile.language), u"language"_qs,
          Texts::tr("La lingua è una di queste: %1").arg(LanguageCodes().join(u", ")));
}

void RequireAddresses(const VorlinaProfile& profile) {
  Require(profile.address.isEmpty() || IsBase(profile.address), u"address"_qs,
          FaultOf(profile.address, u"?#"_qs));
  Require(profile.mapLink.isEmpty() || IsWebAddress(profile.mapLink), u"mapLink"_qs,
          FaultOf(profile.mapLink, {}));
  Require(profile.sisters.size() <= MostSisters, u"sisters"_qs,
          Texts::tr("Più di %1 cataloghi in altre lingue").arg(MostSisters));
  for (const VorlinaSister& sister : profile.sisters)
    Require(IsSister(sister), u"sisters"_qs, FaultOf(sister.address, {}));
}

void RequireLook(const VorlinaProfile& profile) {
  Require(profile.accent.isEmpty() || IsColour(profile.accent), u"accent"_qs,
          Texts::tr("\"%1\" non è un colore della forma #rrggbb").arg(profile.accent.left(50)));
  Require(IsFont(profile.font), u"font"_qs, Texts::tr("Il carattere è sans, serif o mono"));
  Require(IsPrice(profile.price), u"price"_qs, Texts::tr("Il prezzo è uno dei tre valori, o nessuno"));
  Require(profile.pictureSizes.size() <= MostSizes &&
              std::all_of(profile.pictureSizes.begin(), profile.pictureSizes.end(), IsSize),
          u"pictureSizes"_qs,
          Texts::tr("Le misure delle immagini sono al più %1, ognuna da %2 a %3 pixel")
              .arg(MostSizes)
              .arg(SmallestSize)
              .arg(LargestSize));
}

QList<int> Ascending(QList<int> sizes) {
  std::sort(sizes.begin(), sizes.end());
  sizes.erase(std::unique(sizes.begin(), sizes.end()), sizes.end());
  return sizes.isEmpty() ? UsualSizes : sizes;
}

template <std::size_t Count>
QJsonArray ListOf(const std::array<bool, Count>& flags) {
  QJsonArray list;
  for (const bool flag : flags) list += flag;
  return list;
}

bool FlagOf(const QJsonValue& kept) {
  if (kept.isUndefined()) return true;
  if (!kept.isBool()) throw DamagedProfiles();
  return kept.toBool();
}

template <std::size_t Count>
std::array<bool, Count> FlagsOf(const QJsonValue& kept) {
  std::array<bool, Count> flags;
  flags.fill(true);
  if (kept.isUndefined()) return flags;
  if (kept.toArray().size() < qsizetype(Count)) throw DamagedProfiles();
  for (std::size_t i = 0; i < Count; ++i) flags.at(i) = FlagOf(kept.toArray()[qsizetype(i)]);
  return flags;
}

int PriceOf(const QJsonValue& kept) {
  if (kept.isUndefined()) return VorlinaProfile::PriceByName;
  if (!kept.isDouble() || !IsPrice(kept.toInt(99))) throw DamagedProfiles();
  return kept.toInt();
}

QList<int> SizesOf(const QJsonValue& kept) {
  QList<int> sizes;
  for (const QJsonValue size : kept.toArray())
    if (IsSize(size.toInt()) && sizes.size() < MostSizes) sizes += size.toInt();
  return Ascending(sizes);
}

QList<VorlinaSister> SistersOf(const QJsonValue& kept) {
  QList<VorlinaSister> sisters;
  for (const QJsonValue value : kept.toArray()) {
    const VorlinaSister sister{value[u"language"].toString(), value[u"address"].toString()};
    if (IsSister(sister) && sisters.size() < MostSisters) sisters += sister;
  }
  return sisters;
}

}  // namespace

DamagedProfiles::DamagedProfiles()
    : Error(Texts::tr("I profili di pubblicazione del catalogo sono danneggiati e non si possono leggere")) {}

QString FaultOfProfileName(const QString& name) {
  if (name.isEmpty()) return Texts::tr("Un profilo ha bisogno di un nome.");
  return name.size() <= LongestName
             ? QString()
             : Texts::tr("Il nome del profilo ha più di %1 caratteri").arg(LongestName);
}

bool IsWebAddress(const QString& text) {
  if (text.size() > LongestAddress) return false;
  const QUrl url(text, QUrl::StrictMode);
  return url.isValid() && !url.host().isEmpty() && url.userInfo().isEmpty() &&
         (url.scheme() == u"http" || url.scheme() == u"https");
}

bool IsColour(const QString& text) {
  static const QRegularExpression colour(QRegularExpression::anchoredPattern(u"#[0-9A-Fa-f]{6}"));
  return colour.match(text).hasMatch();
}

VorlinaProfile GoodProfile(VorlinaProfile profile) {
  profile.name = profile.name.simplified();
  profile.address = Base(profile.address.trimmed());
  profile.accent = profile.accent.trimmed().toLower();
  profile.hours = profile.hours.trimmed();
  profile.mapLink = profile.mapLink.trimmed();
  for (VorlinaSister& sister : profile.sisters) sister.address = sister.address.trimmed();
  RequireTexts(profile);
  RequireAddresses(profile);
  RequireLook(profile);
  profile.pictureSizes = Ascending(profile.pictureSizes);
  return profile;
}

QJsonObject JsonOf(const VorlinaProfile& profile, QJsonObject former) {
  QJsonArray sizes;
  for (const int size : profile.pictureSizes) sizes += size;
  QJsonArray sisters;
  for (const VorlinaSister& sister : profile.sisters)
    sisters += QJsonObject{{u"language"_qs, sister.language}, {u"address"_qs, sister.address}};
  const QJsonObject own{{u"id"_qs, profile.identifier},
                        {u"name"_qs, profile.name},
                        {u"language"_qs, profile.language},
                        {u"address"_qs, profile.address},
                        {u"accent"_qs, profile.accent},
                        {u"font"_qs, profile.font},
                        {u"showLogo"_qs, profile.showLogo},
                        {ProfileLogoMember, profile.logo},
                        {ProfileWideMember, profile.widePicture},
                        {u"pictureSizes"_qs, sizes},
                        {u"values"_qs, ListOf(profile.values)},
                        {u"filters"_qs, ListOf(profile.filters)},
                        {u"techData"_qs, profile.techData},
                        {u"price"_qs, profile.price},
                        {u"hours"_qs, profile.hours},
                        {u"mapLink"_qs, profile.mapLink},
                        {u"sisters"_qs, sisters}};
  for (auto member = own.begin(); member != own.end(); ++member) former[member.key()] = member.value();
  return former;
}

VorlinaProfile ProfileOf(const QJsonObject& kept) {
  const auto text = [&](const QString& member, bool (*good)(const QString&)) {
    const QString value = kept[member].toString();
    return good(value) ? value : QString();
  };
  VorlinaProfile profile;
  profile.identifier = kept[u"id"].toString();
  profile.name = kept[u"name"].toString().simplified();
  if (profile.identifier.isEmpty() || profile.name.isEmpty()) throw DamagedProfiles();
  profile.language = text(u"language"_qs, [](const QString& code) { return LanguageCodes().contains(code); });
  profile.address = Base(text(u"address"_qs, IsBase));
  profile.accent = text(u"accent"_qs, IsColour);
  profile.font = text(u"font"_qs, IsFont);
  profile.showLogo = FlagOf(kept[u"showLogo"]);
  profile.logo = kept[ProfileLogoMember].toString();
  profile.widePicture = kept[ProfileWideMember].toString();
  profile.pictureSizes = SizesOf(kept[u"pictureSizes"]);
  profile.values = FlagsOf<3>(kept[u"values"]);
  profile.filters = FlagsOf<5>(kept[u"filters"]);
  profile.techData = FlagOf(kept[u"techData"]);
  profile.price = PriceOf(kept[u"price"]);
  profile.hours = kept[u"hours"].toString().left(LongestHours);
  profile.mapLink = text(u"mapLink"_qs, IsWebAddress);
  profile.sisters = SistersOf(kept[u"sisters"]);
  return profile;
}

}  // namespace vorlina
