#include "batch/Arguments.h"

#include <algorithm>
#include <functional>
#include <map>

#include "base/Texts.h"
#include "publish/CatalogLanguage.h"

namespace vorlina {
namespace {

enum class Word { None, File, Folder };

struct CommandForm {
  QStringList options;   // that it needs
  Word word;             // what follows its name
  QStringList others{};  // that it may have
};

const std::map<QString, CommandForm>& CommandForms() {
  static const std::map<QString, CommandForm> forms{
      {u"catalogs"_qs, {{}, Word::None}},
      {u"plugins"_qs, {{}, Word::None}},
      {u"publish"_qs, {{u"--catalog"_qs, u"--plugin"_qs, u"--to"_qs}, Word::None, {u"--profile"_qs}}},
      {u"import"_qs, {{u"--catalog"_qs}, Word::Folder, {u"--without-copy"_qs}}},
      {u"clone"_qs, {{u"--catalog"_qs}, Word::None}},
      {u"delete"_qs, {{u"--catalog"_qs, u"--yes"_qs}, Word::None, {u"--without-copy"_qs}}},
      {u"check"_qs, {{}, Word::None}},
      {u"backup"_qs, {{}, Word::File, {u"--allow-missing"_qs}}},
      {u"restore"_qs, {{u"--yes"_qs}, Word::File}}};
  return forms;
}

[[noreturn]] void Refuse(const QString& why) { throw UsageError(why); }

// Options and what they are followed by, and the rest in its order.
struct Pieces {
  std::map<QString, QString> options;
  QStringList words;
};

Pieces Split(const QStringList& texts) {
  static const QStringList flags{u"--help"_qs, u"--version"_qs,       u"--json"_qs,
                                 u"--yes"_qs,  u"--allow-missing"_qs, u"--without-copy"_qs};
  static const QStringList valued{u"--app"_qs, u"--catalog"_qs, u"--plugin"_qs,
                                  u"--to"_qs,  u"--profile"_qs, u"--language"_qs};
  Pieces pieces;
  for (qsizetype i = 0; i < texts.size(); ++i) {
    const QString& text = texts[i];
    if (text == u"--") {
      pieces.words += texts.mid(i + 1);
      break;
    }
    const QString name = text == u"-h" ? u"--help"_qs : text.section(u'=', 0, 0);
    if (!text.startsWith(u'-') || text == u"-") {
      pieces.words += text;
    } else if (flags.contains(text == u"-h" ? name : text)) {
      pieces.options[name] = QString();
    } else if (!valued.contains(name)) {
      Refuse(Texts::tr("Opzione sconosciuta: %1").arg(text));
    } else if (pieces.options.count(name) > 0) {
      Refuse(Texts::tr("L'opzione %1 compare due volte").arg(name));
    } else {
      const bool joined = text.contains(u'=');
      const QString value = joined ? text.mid(name.size() + 1) : texts.value(++i);
      if (value.isEmpty()) Refuse(Texts::tr("Manca il valore dopo %1").arg(name));
      pieces.options[name] = value;
    }
  }
  return pieces;
}

int CatalogNumber(const QString& text) {
  bool isNumber = false;
  const int id = text.toInt(&isNumber);
  if (!isNumber || id <= 0)
    Refuse(
        Texts::tr("--catalog vuole il numero di un catalogo, non \"%1\". Il comando \"catalogs\" li elenca.")
            .arg(text));
  return id;
}

// A language of the program's is that of the messages as well.
void SettleLanguage(Arguments& arguments, const QString& value) {
  if (value.isEmpty()) return;
  if (HasTexts(value)) {
    arguments.language = value;
    arguments.published = CodeOfLanguage(value);
  } else if (arguments.command != u"publish") {
    Refuse(Texts::tr("La lingua è Italian o English"));
  } else if (!LanguageCodes().contains(value)) {
    Refuse(Texts::tr("La lingua è Italian o English, o per ciò che si pubblica una di %1")
               .arg(LanguageCodes().join(u", ")));
  } else {
    arguments.published = value;
  }
}

// Every option that the command needs, none that it does not know, and a file where it takes one.
void RequireForm(const QString& command, const Pieces& pieces) {
  const auto form = CommandForms().find(command);
  if (form == CommandForms().end()) Refuse(Texts::tr("Comando sconosciuto: %1").arg(command));
  const QStringList& needed = form->second.options;
  for (const QString& option : needed)
    if (pieces.options.count(option) == 0)
      Refuse(Texts::tr("Il comando %1 vuole l'opzione %2").arg(command, option));
  for (const auto& [option, value] : pieces.options)
    if (!needed.contains(option) && !form->second.others.contains(option) && option != u"--app" &&
        option != u"--json" && option != u"--language")
      Refuse(Texts::tr("Il comando %1 non ha l'opzione %2").arg(command, option));
  const qsizetype words = pieces.words.size() - 1;
  if (form->second.word == Word::File && words != 1)
    Refuse(Texts::tr("Il comando %1 vuole un nome di file").arg(command));
  if (form->second.word == Word::Folder && words != 1)
    Refuse(Texts::tr("Il comando %1 vuole una cartella").arg(command));
  if (form->second.word == Word::None && words > 0) Refuse(Texts::tr("Di troppo: %1").arg(pieces.words[1]));
}

}  // namespace

Arguments ParseArguments(const QStringList& texts) {
  const Pieces pieces = Split(texts);
  const auto value = [&](const QString& option) {
    const auto found = pieces.options.find(option);
    return found == pieces.options.end() ? QString() : found->second;
  };
  Arguments arguments;
  arguments.help = pieces.options.count(u"--help"_qs) > 0;
  arguments.version = pieces.options.count(u"--version"_qs) > 0;
  arguments.json = pieces.options.count(u"--json"_qs) > 0;
  if (arguments.help || arguments.version) return arguments;
  if (pieces.words.isEmpty()) Refuse(Texts::tr("Manca il comando"));
  arguments.command = pieces.words[0];
  RequireForm(arguments.command, pieces);
  arguments.application = value(u"--app"_qs);
  SettleLanguage(arguments, value(u"--language"_qs));
  arguments.profile = value(u"--profile"_qs);
  arguments.allowMissing = pieces.options.count(u"--allow-missing"_qs) > 0;
  arguments.withoutCopy = pieces.options.count(u"--without-copy"_qs) > 0;
  arguments.plugin = value(u"--plugin"_qs);
  arguments.target = value(u"--to"_qs);
  arguments.file = pieces.words.value(1);
  if (pieces.options.count(u"--catalog"_qs) > 0) arguments.catalog = CatalogNumber(value(u"--catalog"_qs));
  return arguments;
}

QString HelpText() {
  return Texts::tr(R"(Uso: vorlina-batch COMANDO [OPZIONI]

Comandi:
  catalogs                 elenca i cataloghi
  plugins                  elenca i plug-in di pubblicazione
  publish --catalog ID --plugin IDENT --to DOVE [--profile NOME]
                           pubblica un catalogo in una cartella, o nel file che il plug-in fa, come dice un suo
                           profilo; va nominato dove ne ha più d'uno
  import CARTELLA --catalog ID
                           fa un prodotto di ogni immagine ".jpg" della cartella
  clone --catalog ID       duplica un catalogo con le sue immagini
  delete --catalog ID --yes
                           elimina un catalogo con le sue immagini; --yes dice che è voluto. Come per import,
                           prima si tiene in "Backups" una copia del database; con --without-copy no
  check                    controlla il database e le immagini; 1 se è stato trovato un danno, 0 se si tratta
                           solo di note, come un file che nessuna riga usa
  backup FILE [--allow-missing]
                           salva database, immagini e layout in un archivio; con --allow-missing anche se
                           mancano immagini
  restore FILE --yes       li sostituisce con quelli di un archivio; --yes dice che è voluto. Quel che c'era
                           prima resta in "Before restore" fino al prossimo ripristino. Di una copia in
                           "Backups" sostituisce il solo database

Opzioni:
  --app CARTELLA           usa un'altra cartella dell'applicazione
  --language LINGUA        Italian o English, per i messaggi e per ciò che si pubblica; it, en, de, fr o es
                           solo per ciò che si pubblica
  --json                   un oggetto JSON al posto del testo
  --help                   mostra questo aiuto
  --version                mostra la versione

Codici di uscita: 0 riuscito, 1 non riuscito, 2 riga di comando errata.
)");
}

}  // namespace vorlina
