// File names of the site: ASCII, without accents and with plain letters ("Øre" is "ore"), at most 60
// characters with their ending, legal on every file system, and never one name for two texts.
#pragma once

#include <QHash>
#include <QSet>
#include <QString>

namespace publishing {

class PublishedNames {
 public:
  // A name made of the prefix (such as "p-") and the text; where an earlier text has that name, with a few
  // digits of its hash. So the texts that came first are to be named first: their names stay when others
  // come. The same prefix and text give the same name again. No ending is added; "-12.html" behind it stays
  // within the limit.
  QString NameOf(const QString& prefix, const QString& text);

 private:
  QSet<QString> used_;
  QHash<QString, QString> given_;
};

}  // namespace publishing
