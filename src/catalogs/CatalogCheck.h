// Whether what the database says and what lies in "Images" agree.
#pragma once

#include <QString>
#include <vector>

namespace vorlina {

class Connection;

// Damage is what the user misses something by; the rest is worth knowing.
enum class FindingKind {
  Database,          // damage: the file itself, or a row that refers to a row that is not there
  MissingPicture,    // damage: a row names a picture, and there is none
  DanglingFilter,    // damage: a product has a filter value that does not exist
  MissingThumbnail,  // the picture itself is shown instead
  OutsidePicture,    // the picture does not lie in "Images", so that no backup holds it
  UnusedFile,        // a file in "Images" that no row names
  TemporaryFile,     // what an operation that was cut short left in "Images"
};

struct Finding {
  FindingKind kind;
  QString subject;  // the row, such as "Prodotti 109 A-1", or the file's name
  QString detail;   // what is wrong with it, or ""; a path for a picture
};

bool IsDamage(FindingKind kind);
// A stable word for a kind, such as "missing-picture".
QString NameOf(FindingKind kind);
// A heading for a kind, in the user's language.
QString TitleOf(FindingKind kind);
// What the user can do about it, in the user's language; "" where there is nothing to do.
QString AdviceOn(FindingKind kind);

// All findings, by kind. Throws Error when the database cannot be read at all.
std::vector<Finding> CheckCatalogs(Connection& connection);

}  // namespace vorlina
