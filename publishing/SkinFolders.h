// Where skins lie: "PubWiz/VLHTML.HTML/Skins" in the application folder, one folder a skin. The file
// "current.txt" beside them names the one in use; without it, "Standard" is.
#pragma once

#include <IVorlinaPlugin.h>

#include <QString>
#include <QStringList>

namespace publishing {

// The folder of the skin in use.
QString CurrentSkin(const VorlinaHost& host);

// The names of all skins, the standard one first.
QStringList Skins(const VorlinaHost& host);
// Puts a skin into use. Throws std::runtime_error where it is no skin any more; nothing has changed then.
void UseSkin(const QString& name, const VorlinaHost& host);

// Unpacks a zip archive, checks that it is a skin, gives it its place under the archive's name and puts it
// into use. The name is returned. A skin that had the name is replaced, but never the standard one. Throws
// std::runtime_error; nothing has changed then.
QString InstallSkinArchive(const QString& archive, const VorlinaHost& host);

}  // namespace publishing
