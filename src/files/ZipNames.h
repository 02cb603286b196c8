// The rules of names in archives. Names are relative paths whose separators are "/", made of letters, marks,
// digits, punctuation, symbols and blanks of any script, but of no character that a file system or a shell
// window takes for something else, and two names never differ in letter case alone.
#pragma once

#include <QString>
#include <functional>
#include <map>

namespace files {

// What keeps an archive from being read.
enum class ZipFault {
  NoFile,       // a folder, a pipe or the like has its name
  Unreadable,   // about: the system's reason
  NoArchive,    // about: the reason, in English
  Damaged,      // about: the reason, in English
  NoText,       // a name that is not in UTF-8
  SpecialFile,  // about: the name of a link, a device or the like
  BadName,      // about: the name
  Twin,         // about: a name that is there twice, or in another letter case
  TooManyFiles,
  TooLarge,  // about: how many MB it may hold
};

// Throws what tells a fault to the user: archives are read on behalf of more than one, each with its own
// words.
using ZipFail = std::function<void(ZipFault fault, const QString& about)>;

bool IsGoodZipName(const QString& name);

// The names of one archive, which must differ by more than letter case, also in the folders they lie in.
class ZipNames {
 public:
  explicit ZipNames(ZipFail fail) : fail_(std::move(fail)) {}
  // Takes a name in. Fails for a bad one, and for the twin of another.
  void Add(const QString& name, bool folder);

 private:
  void AddSpelling(const QString& path, bool folder);

  ZipFail fail_;
  std::map<QString, QString> spellings_;  // by folded path: how a folder is spelled, Null for a file
};

}  // namespace files
