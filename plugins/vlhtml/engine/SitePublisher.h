// Publishes a catalog as a web site into a folder.
#pragma once

#include "Publishing.h"

#include <IVorlinaPlugin.h>

#include <QString>

namespace publishing {
enum class FormerSite;
}

namespace vlhtml {

class SitePublisher : public IVorlinaPublisher {
 public:
  // skin is a skin folder; "" stands for the one in use. words is the folder of the words that were
  // delivered; "" stands for its place beside the plug-in.
  explicit SitePublisher(const VorlinaHost& host, QString skin = {}, QString words = {})
      : host_(host), skin_(std::move(skin)), words_(std::move(words)) {}

  // A folder with the site of another catalog or profile is refused where nobody can be asked.
  VorlinaReport Publish(IVorlinaConnection& connection, const VorlinaJob& job,
                        IVorlinaProgress& progress) override;

 private:
  bool MayReplace(publishing::FormerSite former, const QString& title, const QString& folder) const;
  QString WordsFolder() const;

  VorlinaHost host_;
  QString skin_, words_;
};

}  // namespace vlhtml
