// A publication into a folder: its files, made, copied or given, and their way into the folder's place.
//
//   Publication publication(connection, job, italian);
//   if (!publication.MayGoOn(askWhetherToReplace)) return report;
//   publication.AddPage(QStringLiteral("index.html"), 0);
//   publication.AddPicture(QStringLiteral("images/1.jpg"), source, stamp);
//   report = publication.Make(title, newMaker, progress);
//
// Only files that are not there yet, or are not what they would be made to be, are made. Either all of them
// take their places or none: an exception, a stop or a kill leaves the former files, or the next publication
// completes the new ones. What else lies in the folder is not touched.
#pragma once

#include <VorlinaJob.h>

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Staging.h"
#include "TargetMemory.h"

class IVorlinaConnection;
class IVorlinaProgress;

namespace publishing {

// Makes the pages of a publication, on one thread: each has its own.
class PageMaker {
 public:
  virtual ~PageMaker() = default;
  // Looks at a page, and gives the digest of all that it shows.
  virtual QByteArray LookAt(std::size_t page) = 0;
  // The text of the page that was looked at last, in HTML.
  virtual std::string Make() = 0;
};
using NewPageMaker = std::function<std::unique_ptr<PageMaker>()>;

// Asks whether what another catalog published, under this title, may be replaced.
using MayReplace = std::function<bool(const QString& title)>;

class Publication {
 public:
  // Holds the job's folder from now on, and completes what was left there by a publication that was killed.
  // Throws std::runtime_error for a folder that nothing may be published into: one of the program's or of
  // somebody else, and one that is being published into.
  Publication(IVorlinaConnection& connection, const VorlinaJob& job, bool italian);

  // Whether the folder may have this catalog; to be asked before anything is reported or made. Throws for one
  // of another catalog where nobody can be asked.
  bool MayGoOn(const MayReplace& ask) const;
  // Whether something was published there before.
  bool IsAgain() const { return !staging_.Former().entries.isEmpty(); }

  // A page, which the maker knows by this number. What is added before the next one comes with it.
  void AddPage(const QString& file, std::size_t page);
  // A copy of a file. The stamp changes when the source does.
  void AddCopy(const QString& file, const QString& source, const QByteArray& stamp);
  // The same, counted as one of the publication's pictures.
  void AddPicture(const QString& file, const QString& source, const QByteArray& stamp);
  // A file that is made when it is needed, on any thread. The stamp changes when it would come out otherwise.
  void AddMade(const QString& file, const QByteArray& stamp, std::function<QByteArray()> make);

  // Makes it all, under a title by which the user knows it. The report has the numbers, and notes of what
  // could not be deleted; it is not complete where the progress asked to stop.
  VorlinaReport Make(const QString& title, const NewPageMaker& newMaker, IVorlinaProgress& progress);

 private:
  enum class Kind { Page, Copy, Made };
  struct File {
    Kind kind = Kind::Page;
    QString name;
    QByteArray input;  // digest of what it is made from
    std::size_t page = 0;
    QString source;  // of a copy
    std::function<QByteArray()> make;
    QStringList files;  // that came with a page
  };
  using Progress = std::function<bool(int)>;

  File& Add(Kind kind, const QString& name, const QByteArray& input);
  QByteArray HiddenInput(const File& file, PageMaker& maker) const;
  bool Compare(const NewPageMaker& newMaker, const Progress& report, std::vector<const File*>& pending);
  bool MakeFiles(const std::vector<const File*>& pending, const NewPageMaker& newMaker, Manifest& coming,
                 const Progress& report);
  ManifestEntry MakeFile(const File& file, PageMaker& maker) const;
  void Count(const std::vector<const File*>& pending, const Manifest& coming, VorlinaReport& report) const;

  IVorlinaConnection& connection_;
  QString target_;
  bool italian_, preview_;
  Staging staging_;
  SiteKey key_;
  std::vector<File> files_;
  std::size_t lastPage_ = 0;
  int pages_ = 0, pictures_ = 0;
};

}  // namespace publishing
