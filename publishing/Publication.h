// A publication into a folder: its files, made, copied or given, and their way into the folder's place.
//
//   Publication publication(connection, job, plugin, italian);
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

#include "PublicationInputs.h"

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

// Asks whether a site, which has this title, may be replaced; or, where there is none, whether this one may
// come among files of the user's own, none of which is replaced.
enum class FormerSite { OfAnotherCatalog, OfAnotherProfile, NoneButFiles };
using MayReplace = std::function<bool(FormerSite former, const QString& title)>;

class Publication {
 public:
  // Holds the job's folder from now on, and completes what was left there by a publication that was killed.
  // Throws std::runtime_error for a folder that nothing may be published into: one of the program's or of
  // somebody else, and one that is being published into. The plug-in is told by its identifier: what it
  // publishes is another site than that of other plug-ins, and is remembered in its folder.
  Publication(IVorlinaConnection& connection, const VorlinaJob& job, const QString& plugin, bool italian);
  ~Publication();
  Publication(const Publication&) = delete;
  Publication& operator=(const Publication&) = delete;

  // Whether all that it is made from, and what it made of that last time, is as it was then: the report is
  // that of last time, with no change, and there is nothing to do. To be asked before what it is made from
  // is read; not for a preview. It is true only after a publication that was remembered.
  bool IsAsBefore(const PublicationInputs& inputs, VorlinaReport& report);
  // Whether the folder may have this catalog; to be asked before anything is reported or made. Where nobody
  // can be asked it throws for one with the site of another catalog, or of another profile, and is content
  // with other files, hidden ones being no question anyway. A preview never asks. Nothing is made without it.
  bool MayGoOn(const MayReplace& ask);

  // A page, which the maker knows by this number. What is added before the next one comes with it. Each file
  // can be added once.
  void AddPage(const QString& file, std::size_t page);
  // A copy of a file. The stamp changes when the source does.
  void AddCopy(const QString& file, const QString& source, const QByteArray& stamp);
  // The same, counted as one of the publication's pictures.
  void AddPicture(const QString& file, const QString& source, const QByteArray& stamp);
  // A file that is made when it is needed, on any thread. The stamp changes when it would come out otherwise.
  void AddMade(const QString& file, const QByteArray& stamp, std::function<std::string()> make);

  // Makes it all, under a title by which the user knows it. The report has the numbers, and notes of what
  // could not be deleted; it is not complete where the progress asked to stop.
  VorlinaReport Make(const QString& title, const NewPageMaker& newMaker, IVorlinaProgress& progress);

  // Keeps what the next publication need not look at again, and the whole report, with which it can end
  // early; not where something could not be made that may be possible the next time.
  void Remember(const VorlinaReport& report, bool allMade = true);

 private:
  class Work;
  std::unique_ptr<Work> work_;
};

}  // namespace publishing
