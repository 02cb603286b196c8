#include "CatalogLanguage.h"

#include <IVorlinaPlugin.h>

#include <QSet>
#include <QStringList>

#include "TargetMemory.h"

namespace vlhtml {
namespace {

const QString Name = QStringLiteral("VLHTML.HTML.Lingua");

QSet<QString> Words(const QString& text) {
  const QStringList words = text.split(u' ');
  return {words.begin(), words.end()};
}

QStringList TextsOf(IVorlinaConnection& connection, int IDCatalogo) {
  QStringList texts;
  for (const QString& statement :
       {QStringLiteral("SELECT Titolo,Sottotitolo,Spalla,NomeValore1,NomeValore2,NomeValore3,NomeFiltro1,"
                       "NomeFiltro2,NomeFiltro3,NomeFiltro4,NomeFiltro5 FROM Cataloghi WHERE IDCatalogo=?"),
        QStringLiteral("SELECT Descrizione FROM Prodotti WHERE IDCatalogo=? AND Pubblica LIMIT 200")}) {
    const auto rows = connection.Open(statement, {IDCatalogo});
    while (rows->Next())
      for (int column = 0; column < rows->ColumnCount(); ++column)
        texts += rows->Value(column).toString().toLower();
  }
  return texts;
}

}  // namespace

QString RememberedLanguage(IVorlinaConnection& connection, int IDCatalogo) {
  const QString language = KeptWithCatalog(connection, IDCatalogo, Name);
  return language == u"Italian" || language == u"English" ? language : QString();
}

void RememberLanguage(IVorlinaConnection& connection, int IDCatalogo, const QString& language) {
  KeepWithCatalog(connection, IDCatalogo, Name, language);
}

bool LooksItalian(IVorlinaConnection& connection, int IDCatalogo, bool otherwise) {
  // Words that the other language does not have.
  static const QSet<QString> italian =
      Words(QStringLiteral("il lo la gli le un una di del della dei delle e con da al alla che non è sono "
                           "prezzo colore materiale misure linea"));
  static const QSet<QString> english =
      Words(QStringLiteral("the of and with to an for from by is are our this not "
                           "price colour color size range"));
  int more = 0;
  for (const QString& text : TextsOf(connection, IDCatalogo))
    for (const QString& word : text.simplified().split(u' '))
      more += int(italian.contains(word)) - int(english.contains(word));
  return more == 0 ? otherwise : more > 0;
}

}  // namespace vlhtml
