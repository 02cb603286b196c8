// Where the skins of a plug-in lie: "PubWiz/IDENTIFIER/Skins" in the application folder, one folder a skin.
// The file "current.txt" beside them names the one in use; without it, "Standard" is.
#pragma once

#include <IVorlinaPlugin.h>

#include <QString>
#include <QStringList>

#include "Skin.h"

namespace publishing {

// The folder of the skin in use.
QString CurrentSkin(const SkinKind& kind, const VorlinaHost& host);

// The names of all skins, the standard one first.
QStringList Skins(const SkinKind& kind, const VorlinaHost& host);
// Puts a skin into use. Throws std::runtime_error where it is no skin any more; nothing has changed then.
void UseSkin(const QString& name, const SkinKind& kind, const VorlinaHost& host);

// Unpacks a zip archive, checks that it is a skin, gives it its place under the archive's name and puts it
// into use. The name is returned. A skin that had the name is replaced, but never the standard one. Throws
// std::runtime_error; nothing has changed then.
QString InstallSkinArchive(const QString& archive, const SkinKind& kind, const VorlinaHost& host);

}  // namespace publishing
