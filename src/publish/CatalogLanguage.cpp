#include "publish/CatalogLanguage.h"

#include <QRegularExpression>
#include <QSet>
#include <algorithm>
#include <array>

#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Texts.h"
#include "publish/ExtensionManager.h"
#include "store/Connection.h"
#include "support/Language.h"

namespace vorlina {
namespace {

const QString LanguageExtension = QStringLiteral("Vorlina.Lingua");
// Where the plug-in of the plain site kept it.
const QString FormerExtension = QStringLiteral("VLHTML.HTML.Lingua");

struct KnownLanguage {
  const char16_t* code;
  const char16_t* name;
  const char16_t* english;
  const char16_t* words;  // the commonest, between blanks
};

// A word counts for every language that has it, and those that only one has decide.
constexpr std::array<KnownLanguage, 5> KnownLanguages{{
    {u"it", u"Italiano", u"Italian",
     u"il lo la gli le i un una di del della dei delle e è con da al alla per in che non sono nel nella "
     "più anche si prezzo colore materiale misure linea"},
    {u"en", u"English", u"English",
     u"the of and with to a an for from by in on is are our this that not or as price colour color size "
     "range"},
    {u"de", u"Deutsch", u"German",
     u"der die das und mit für ist aus von auf ein eine einen nicht den dem des im in zu bei oder auch sich "
     "preis farbe größe"},
    {u"fr", u"Français", u"French",
     u"le la les l de des du et avec pour est une un dans sur pas aux au ou par sans en ce cette prix "
     "couleur taille"},
    {u"es", u"Español", u"Spanish",
     u"el la los las de del y con para es un una por que en sin se más al o su precio color tamaño"},
}};

QStringList TextsOf(Connection& connection, int IDCatalogo) {
  QStringList texts;
  for (const QString& statement :
       {u"SELECT Titolo,Sottotitolo,Spalla,NomeValore1,NomeValore2,NomeValore3,NomeFiltro1,NomeFiltro2,"
        "NomeFiltro3,NomeFiltro4,NomeFiltro5 FROM Cataloghi WHERE IDCatalogo=?"_qs,
        u"SELECT Descrizione FROM Prodotti WHERE IDCatalogo=? AND Pubblica LIMIT 200"_qs}) {
    Rows rows(connection, statement, {IDCatalogo});
    while (rows.Next())
      for (int column = 0; column < rows.ColumnCount(); ++column)
        texts += NullToEmpty(rows.Value(column)).toLower();
  }
  return texts;
}

QString ProgramLanguage() {
  QString code = CodeOfLanguage(Language);
  return code.isEmpty() ? u"it"_qs : code;
}

}  // namespace

const QStringList& LanguageCodes() {
  static const QStringList codes = [] {
    QStringList all;
    for (const KnownLanguage& language : KnownLanguages) all += QString::fromUtf16(language.code);
    return all;
  }();
  return codes;
}

QString LanguageName(const QString& code) {
  for (const KnownLanguage& language : KnownLanguages)
    if (code == language.code) return QString::fromUtf16(language.name);
  return {};
}

QString CodeOfLanguage(const QString& name) {
  for (const KnownLanguage& language : KnownLanguages)
    if (name == language.english) return QString::fromUtf16(language.code);
  return {};
}

QString StoredLanguage(Connection& connection, int IDCatalogo) {
  QString code = CatalogExtension(LanguageExtension, IDCatalogo, connection);
  if (LanguageCodes().contains(code)) return code;
  return CodeOfLanguage(CatalogExtension(FormerExtension, IDCatalogo, connection));
}

QString ProposedLanguage(Connection& connection, int IDCatalogo) {
  static const QRegularExpression between(u"[^\\p{L}\\p{M}]+"_qs,
                                          QRegularExpression::UseUnicodePropertiesOption);
  std::array<int, KnownLanguages.size()> counts{};
  std::array<QSet<QString>, KnownLanguages.size()> words;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const QStringList list = QString::fromUtf16(KnownLanguages.at(i).words).split(u' ');
    words.at(i) = {list.begin(), list.end()};
  }
  for (const QString& text : TextsOf(connection, IDCatalogo))
    for (const QString& word : text.split(between, Qt::SkipEmptyParts))
      for (std::size_t i = 0; i < words.size(); ++i) counts.at(i) += int(words.at(i).contains(word));
  const auto most = std::max_element(counts.begin(), counts.end());
  const auto index = LanguageCodes().indexOf(ProgramLanguage());
  if (*most == counts.at(std::size_t(index))) return ProgramLanguage();
  return LanguageCodes().at(most - counts.begin());
}

void StoreLanguage(Connection& connection, int IDCatalogo, const QString& code) {
  if (!LanguageCodes().contains(code))
    throw Error(Texts::tr("La lingua è una di queste: %1").arg(LanguageCodes().join(u", ")));
  KeepCatalogExtension(LanguageExtension, code, IDCatalogo, connection);
}

}  // namespace vorlina
