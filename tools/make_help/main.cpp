// Makes the help's sources into a project for qhelpgenerator, and refuses what would mislead its reader.
//
// usage: make_help check SOURCES FORMS
//          tells all that is wrong; below the folder FORMS every window has its form
//        make_help pictures SOURCES LANGUAGE LIST
//          writes the names of the pictures that the pages show into a file, unless it has them
//        make_help project SOURCES LANGUAGE PICTURES TARGET [draft]
//          lays the project out in a folder; a draft goes without the pictures that are missing
//
// A language is "it" or "en".
#include <QCoreApplication>
#include <QFile>
#include <cstdio>
#include <stdexcept>

#include "HelpProject.h"
#include "HelpSource.h"

using namespace vorlina;

namespace {

int Check(const HelpSource& source, const QStringList& windows) {
  const QStringList problems = source.Problems(windows);
  for (const QString& problem : problems) std::fprintf(stderr, "%s\n", qUtf8Printable(problem));
  if (problems.isEmpty()) std::printf("%zu pages in each language, nothing wrong\n", source.Entries().size());
  return problems.isEmpty() ? 0 : 1;
}

// A file that stays as it is has nothing made anew behind it.
void WriteList(const QStringList& names, const QString& path) {
  const QByteArray list = names.join(u'\n').toUtf8();
  QFile file(path);
  if (file.open(QIODevice::ReadOnly) && file.readAll() == list) return;
  file.close();
  if (!file.open(QIODevice::WriteOnly) || file.write(list) != list.size())
    throw std::runtime_error("cannot write " + path.toStdString());
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments().mid(1);
  const QString command = arguments.value(0);
  try {
    const HelpSource source(arguments.value(1));
    if (command == u"check" && arguments.size() == 3) return Check(source, WindowsBelow(arguments[2]));
    if (command == u"pictures" && arguments.size() == 4) {
      WriteList(source.Pictures(arguments[2]), arguments[3]);
      return 0;
    }
    if (command == u"project" && arguments.size() >= 5) {
      if (Check(source, {}) != 0) return 1;
      LayOutProject(source, arguments[1], arguments[2], arguments[3], arguments[4],
                    arguments.value(5) == u"draft");
      return 0;
    }
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  std::fprintf(stderr, "usage: make_help check|pictures|project ...\n");
  return 2;
}
