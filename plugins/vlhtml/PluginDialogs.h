// The plug-in's own questions.
#pragma once

#include <QString>
#include <QStringList>

class QWidget;

namespace vlhtml {

// Which language the site speaks: "Italian" or "English"; "" when the user cancels. italian is the language
// of the question.
QString AskSiteLanguage(QWidget* owner, bool italian, bool siteItalian);

struct SkinChoice {
  QString skin;              // the one to be used from now on; "" for none of these
  bool fromArchive = false;  // one is to be installed from a file
};
SkinChoice AskSkin(QWidget* owner, bool italian, const QStringList& skins, const QString& current);

}  // namespace vlhtml
