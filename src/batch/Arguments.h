// The command line of vorlina-batch.
#pragma once

#include <QString>
#include <QStringList>
#include <stdexcept>

#include "base/Error.h"

namespace vorlina {

// A command line that makes no sense. The description says what is right.
class UsageError : public Error {
 public:
  using Error::Error;
};

struct Arguments {
  QString command;  // empty with help or version
  bool help = false;
  bool version = false;
  bool json = false;
  QString application;        // --app, or empty
  QString language;           // --language, of the messages: "Italian", "English" or empty
  QString published;          // --language, of what is published: its code, or empty
  int catalog = 0;            // --catalog
  QString plugin;             // --plugin
  QString target;             // --to
  QString profile;            // --profile, or empty
  bool allowMissing = false;  // --allow-missing
  bool withoutCopy = false;   // --without-copy
  QString file;               // what follows "import", "backup" and "restore"
};

// Reads the command line without the program's name. Options may stand anywhere, as "--to DIR" or "--to=DIR",
// and what follows "--" is no option. Throws UsageError.
Arguments ParseArguments(const QStringList& texts);

// How the program is called, line by line.
QString HelpText();

}  // namespace vorlina
