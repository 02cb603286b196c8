// What is told of the program and the machine that it runs on, for whoever asks for help.
#pragma once

#include <QString>
#include <vector>

namespace vorlina {

class Connection;

struct InformationLine {
  QString what;
  QString value;
};

struct InformationGroup {
  QString title;
  std::vector<InformationLine> lines;
};

// A library that the program runs with.
struct UsedLibrary {
  QString name;
  QString version;  // may be empty
  QString licence;
};

// The program, its folders, the database, the plug-ins as they are given, and the screens. What cannot be
// read of the database is told as such; another program's lock is not waited for.
std::vector<InformationGroup> SystemInformation(Connection& connection,
                                                const std::vector<InformationLine>& plugins);

std::vector<UsedLibrary> UsedLibraries();

// Both as a text to be sent.
QString AsText(const std::vector<InformationGroup>& groups, const std::vector<UsedLibrary>& libraries);

}  // namespace vorlina
