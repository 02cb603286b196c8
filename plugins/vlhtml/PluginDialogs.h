// Everything that the plug-in asks and shows. italian is the language that it does so in.
#pragma once

#include <IVorlinaPlugin.h>

#include <QString>
#include <QStringList>
#include <memory>

class QWidget;

namespace vlhtml {

struct Languages;

// Which language the site speaks: "Italian" or "English"; "" when the user cancels.
QString AskSiteLanguage(QWidget* owner, bool italian, bool siteItalian);

struct SkinChoice {
  QString skin;              // the one to be used from now on; "" for none of these
  bool fromArchive = false;  // one is to be installed from a file
};
SkinChoice AskSkin(QWidget* owner, bool italian, const QStringList& skins, const QString& current);
// The archive that a skin is to be installed from; "" when the user cancels.
QString AskSkinArchive(QWidget* owner, bool italian);
void TellSkinInstalled(QWidget* owner, bool italian, const QString& name);

// The folder that the site goes into, beginning at the former one; "" when the user cancels.
QString AskTargetFolder(QWidget* owner, bool italian, const QString& former);
// The progress window; the program stays painted while it shows. It comes with the first report, so that it
// does not show over a question before.
std::unique_ptr<IVorlinaProgress> MakeProgressWindow(QWidget* owner, bool italian);
// True when the user wants another language for the site.
bool ShowResult(QWidget* owner, const VorlinaReport& result, const QString& folder,
                const Languages& languages);

}  // namespace vlhtml
