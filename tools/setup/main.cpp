// The set-up step after a build: enters the delivered plug-ins into the user's settings, so that the program
// lists what is there. Identifiers that the settings already hold stay where they are.
#include <QCoreApplication>
#include <QDir>
#include <cstdio>

#include "base/Error.h"
#include "base/Settings.h"

using namespace vorlina;

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("Vorlina"));
  try {
    const QString before = GetSetting(ApplicationTitle(), u"Plugins"_qs, u"Plugins"_qs, QString());
    QStringList identifiers = before.split(u';', Qt::SkipEmptyParts);
    const QStringList libraries =
        QDir(QStringLiteral(VORLINA_APP_DIR "/PubWiz")).entryList({u"*.so"_qs}, QDir::Files);
    for (const QString& library : libraries)
      if (const QString identifier = library.chopped(3);
          !identifiers.contains(identifier, Qt::CaseInsensitive))
        identifiers += identifier;
    const QString after = identifiers.join(u';');
    if (after != before) SaveSetting(ApplicationTitle(), u"Plugins"_qs, u"Plugins"_qs, after);
  } catch (const Error& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  return 0;
}
