// Makes a package that Vorlina installs: of a plug-in's library, and of the files that it brings along.
//
// usage: make_package LIBRARY VERSION FOLDER [FILES]
#include <QCoreApplication>
#include <cstdio>

#include "base/Error.h"
#include "publish/PluginPackage.h"
#include "support/Language.h"

using namespace vorlina;

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  QCoreApplication::setApplicationName(u"Vorlina"_qs);
  ChooseLanguage();
  const QStringList words = QCoreApplication::arguments();
  if (words.size() < 4 || words.size() > 5) {
    std::fputs(
        "usage: make_package LIBRARY VERSION FOLDER [FILES]\n\n"
        "LIBRARY  the plug-in, named after its identifier, such as Example.PriceList.so\n"
        "VERSION  letters, digits, points and signs, such as 1.0.2\n"
        "FOLDER   where IDENTIFIER.vpk is made\n"
        "FILES    a folder: what lies in it is installed in PubWiz/IDENTIFIER\n",
        stderr);
    return 2;
  }
  try {
    std::printf("%s\n", qPrintable(WritePackage(words[1], words[2], words.value(4), words[3])));
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", qPrintable(DescriptionOf(error)));
    return 1;
  }
  return 0;
}
