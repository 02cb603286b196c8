#include "batch/Arguments.h"

#include <algorithm>
#include <functional>
#include <map>

#include "base/Language.h"

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
      {u"publish"_qs, {{u"--catalog"_qs, u"--plugin"_qs, u"--to"_qs}, Word::None}},
      {u"import"_qs, {{u"--catalog"_qs}, Word::Folder}},
      {u"clone"_qs, {{u"--catalog"_qs}, Word::None}},
      {u"delete"_qs, {{u"--catalog"_qs, u"--yes"_qs}, Word::None}},
      {u"check"_qs, {{}, Word::None}},
      {u"backup"_qs, {{}, Word::File, {u"--allow-missing"_qs}}},
      {u"restore"_qs, {{u"--yes"_qs}, Word::File}}};
  return forms;
}

[[noreturn]] void Refuse(const QString& italian, const QString& english) {
  throw UsageError(EitherLanguage(italian, english));
}

// Options and what they are followed by, and the rest in its order.
struct Pieces {
  std::map<QString, QString> options;
  QStringList words;
};

Pieces Split(const QStringList& texts) {
  static const QStringList flags{u"--help"_qs, u"--version"_qs, u"--json"_qs, u"--yes"_qs,
                                 u"--allow-missing"_qs};
  static const QStringList valued{u"--app"_qs, u"--catalog"_qs, u"--plugin"_qs, u"--to"_qs, u"--language"_qs};
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
      Refuse(u"Opzione sconosciuta: %1"_qs.arg(text), u"Unknown option: %1"_qs.arg(text));
    } else if (pieces.options.count(name) > 0) {
      Refuse(u"L'opzione %1 compare due volte"_qs.arg(name), u"The option %1 is given twice"_qs.arg(name));
    } else {
      const bool joined = text.contains(u'=');
      const QString value = joined ? text.mid(name.size() + 1) : texts.value(++i);
      if (value.isEmpty())
        Refuse(u"Manca il valore dopo %1"_qs.arg(name), u"The value after %1 is missing"_qs.arg(name));
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
        u"--catalog vuole il numero di un catalogo, non \"%1\". Il comando \"catalogs\" li elenca."_qs.arg(
            text),
        u"--catalog takes the number of a catalog, not \"%1\". The command \"catalogs\" lists them."_qs.arg(
            text));
  return id;
}

// Every option that the command needs, none that it does not know, and a file where it takes one.
void RequireForm(const QString& command, const Pieces& pieces) {
  const auto form = CommandForms().find(command);
  if (form == CommandForms().end())
    Refuse(u"Comando sconosciuto: %1"_qs.arg(command), u"Unknown command: %1"_qs.arg(command));
  const QStringList& needed = form->second.options;
  for (const QString& option : needed)
    if (pieces.options.count(option) == 0)
      Refuse(u"Il comando %1 vuole l'opzione %2"_qs.arg(command, option),
             u"The command %1 needs the option %2"_qs.arg(command, option));
  for (const auto& [option, value] : pieces.options)
    if (!needed.contains(option) && !form->second.others.contains(option) && option != u"--app" &&
        option != u"--json" && option != u"--language")
      Refuse(u"Il comando %1 non ha l'opzione %2"_qs.arg(command, option),
             u"The command %1 has no option %2"_qs.arg(command, option));
  const qsizetype words = pieces.words.size() - 1;
  if (form->second.word == Word::File && words != 1)
    Refuse(u"Il comando %1 vuole un nome di file"_qs.arg(command),
           u"The command %1 takes one file name"_qs.arg(command));
  if (form->second.word == Word::Folder && words != 1)
    Refuse(u"Il comando %1 vuole una cartella"_qs.arg(command),
           u"The command %1 takes one folder"_qs.arg(command));
  if (form->second.word == Word::None && words > 0)
    Refuse(u"Di troppo: %1"_qs.arg(pieces.words[1]), u"Too much: %1"_qs.arg(pieces.words[1]));
}

QString HelpInItalian() {
  return uR"(Uso: vorlina-batch COMANDO [OPZIONI]

Comandi:
  catalogs                 elenca i cataloghi
  plugins                  elenca i plug-in di pubblicazione
  publish --catalog ID --plugin IDENT --to CARTELLA
                           pubblica un catalogo in una cartella
  import CARTELLA --catalog ID
                           fa un prodotto di ogni immagine ".jpg" della cartella
  clone --catalog ID       duplica un catalogo con le sue immagini
  delete --catalog ID --yes
                           elimina un catalogo con le sue immagini; --yes dice che è voluto
  check                    controlla il database e le immagini; 1 se è stato trovato un danno, 0 se si tratta
                           solo di note, come un file che nessuna riga usa
  backup FILE [--allow-missing]
                           salva database, immagini e layout in un archivio; con --allow-missing anche se
                           mancano immagini
  restore FILE --yes       li sostituisce con quelli di un archivio; --yes dice che è voluto. Quel che c'era
                           prima resta in "Before restore" fino al prossimo ripristino

Opzioni:
  --app CARTELLA           usa un'altra cartella dell'applicazione
  --language LINGUA        Italian o English, per i messaggi e per ciò che si pubblica
  --json                   un oggetto JSON al posto del testo
  --help                   mostra questo aiuto
  --version                mostra la versione

Codici di uscita: 0 riuscito, 1 non riuscito, 2 riga di comando errata.
)"_qs;
}

QString HelpInEnglish() {
  return uR"(Usage: vorlina-batch COMMAND [OPTIONS]

Commands:
  catalogs                 lists the catalogs
  plugins                  lists the publishing plug-ins
  publish --catalog ID --plugin IDENT --to DIR
                           publishes a catalog into a folder
  import FOLDER --catalog ID
                           makes a product of each picture ".jpg" in the folder
  clone --catalog ID       clones a catalog with its pictures
  delete --catalog ID --yes
                           deletes a catalog with its pictures; --yes says that this is meant
  check                    checks the database and the pictures; 1 when damage was found, 0 when there are only
                           notes, such as a file that no row uses
  backup FILE [--allow-missing]
                           saves database, pictures and layouts in one archive; with --allow-missing also when
                           pictures are missing
  restore FILE --yes       replaces them by those of an archive; --yes says that this is meant. What was there
                           before stays in "Before restore" until the next restore

Options:
  --app DIR                works on another application folder
  --language LANGUAGE      Italian or English, for the messages and for what is published
  --json                   one JSON object instead of text
  --help                   shows this help
  --version                shows the version

Exit codes: 0 succeeded, 1 did not succeed, 2 wrong command line.
)"_qs;
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
  if (pieces.words.isEmpty()) Refuse(u"Manca il comando"_qs, u"The command is missing"_qs);
  arguments.command = pieces.words[0];
  RequireForm(arguments.command, pieces);
  arguments.application = value(u"--app"_qs);
  arguments.language = value(u"--language"_qs);
  if (!arguments.language.isEmpty() && arguments.language != u"Italian" && arguments.language != u"English")
    Refuse(u"La lingua è Italian o English"_qs, u"The language is Italian or English"_qs);
  arguments.allowMissing = pieces.options.count(u"--allow-missing"_qs) > 0;
  arguments.plugin = value(u"--plugin"_qs);
  arguments.target = value(u"--to"_qs);
  arguments.file = pieces.words.value(1);
  if (pieces.options.count(u"--catalog"_qs) > 0) arguments.catalog = CatalogNumber(value(u"--catalog"_qs));
  return arguments;
}

QString HelpText() { return EitherLanguage(HelpInItalian(), HelpInEnglish()); }

}  // namespace vorlina
