// What a folder's files look like from outside: sizes, times and places on the disk. Where all of it is as it
// was, the files are as they were.
//
// A file that was written a moment ago can be written again without a sign, as times are counted in steps, of
// two seconds on some file systems. Such a file proves nothing.
#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace publishing {

// Nanoseconds since 1970.
using FileTime = std::int64_t;
FileTime Now();
// Files whose times are not before this can have changed since without a sign.
FileTime LastProven(FileTime looked);
// For how long they are young, which tests change.
constexpr FileTime UsuallyYoungFor = 2'000'000'000;
void SetYoungFor(FileTime time);

struct FileState {
  std::uint64_t name = 0;   // hash of its path from the folder
  std::uint64_t state = 0;  // hash of that, of its size, times and place
  FileTime time = 0;        // the last of its times
};

// A number for many states, in whatever order they come.
struct StateSum {
  std::uint64_t count = 0, sum = 0;
  void Add(const FileState& file) {
    ++count;
    sum += file.state;
  }
  bool operator==(const StateSum&) const = default;
};

// The state of a file, by its path from the folder. False where there is none.
bool StateOf(const QString& folder, const QString& file, FileState& state);

using TakeState = std::function<void(const FileState& state, std::string_view path)>;

// The files of a folder, and of these folders below it; one that is missing has none. False where one cannot
// be read.
bool StatesIn(const QString& folder, const QStringList& below, const TakeState& take);
// The files of a folder and of all that lie below it.
bool StatesBelow(const QString& folder, const TakeState& take);

// Tells one start of the computer from another: what was written before need not be on the disk.
QByteArray StartOfComputer();

}  // namespace publishing
