// One help file as Qt Help reads it: its pages, its contents, the words of its index, and the numbers of
// topics.
#pragma once

#include <QHelpEngine>
#include <QTemporaryDir>
#include <memory>
#include <optional>

#include "support/HelpSearch.h"

namespace vorlina {

class WidgetHelpCollection {
 public:
  // Opens a file, which is only read: what Qt keeps of it stands in a folder that goes with this object.
  // Throws Error.
  explicit WidgetHelpCollection(const QString& file);
  ~WidgetHelpCollection();

  const QString& File() const { return file_; }
  QHelpEngine& Engine() const { return *engine_; }
  QByteArray Content(const QUrl& url) const { return engine_->fileData(url); }

  // The page of a topic's number, or of a window's or a command's name; none where there is none.
  std::optional<QUrl> PageOf(const QString& identifier) const;
  // The pages of a word of the index, in any letter case.
  QList<QHelpLink> PagesFor(const QString& keyword) const;
  // The first page.
  QUrl Home() const;
  // A page by the name of its file, whichever its folder; none where there is none.
  std::optional<QUrl> PageNamed(const QString& name) const;
  // The pages are read when something is sought for the first time.
  std::vector<HelpHit> Find(const QString& words);

 private:
  QString file_;
  QTemporaryDir folder_;
  std::unique_ptr<QHelpEngine> engine_;
  QString namespace_;
  std::optional<HelpSearch> search_;
};

}  // namespace vorlina
