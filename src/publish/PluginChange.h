// A change of what is installed in a "PubWiz", by renames alone: either all of it happens, or all is as it
// was. Beside an installed plug-in lies its manifest, IDENTIFIER.manifest.json.
//
// The new files are made in ".IDENTIFIER.vpk-new", which becomes ".IDENTIFIER.vpk-ready" once they are whole.
// From then on a kill leaves a change that ends well when it is taken up again. What is replaced goes through
// ".IDENTIFIER.vpk-old".
#pragma once

#include <QDir>
#include <QStringList>
#include <optional>
#include <vector>

#include "files/FolderLock.h"
#include "publish/PackageManifest.h"

namespace vorlina {

// The path that a plug-in's file has where it came with the program.
QString DeliveredPlugin(const QString& name);

// The manifest of an installed package; nothing where none of this identifier is installed.
std::optional<PackageManifest> InstalledPackage(const QString& folder, const QString& identifier);

// The names of the files that a package would replace or take away and that are neither as a package brought
// them nor as they came with the program: somebody has worked on them.
QStringList FilesToKeep(const QString& folder, const PackageManifest& manifest);

// Where they are kept, below the folder of the plug-in.
inline const QString KeptFolder = QStringLiteral("Before update");

class PluginChange {
 public:
  // Takes an interrupted change of the plug-in up again first, or back where its package cannot be read.
  // Throws Error, also where there is nothing to take back then, and while another program is at one in this
  // folder.
  PluginChange(const QString& folder, QString identifier);
  // What was not completed is taken back.
  ~PluginChange();
  PluginChange(const PluginChange&) = delete;
  PluginChange& operator=(const PluginChange&) = delete;

  // Unpacks the package, which has to be what was verified; nothing of it counts yet.
  void Stage(const QString& package, const PackageManifest& verified);
  // Takes away what is installed. False where nothing is.
  bool TakeOut();
  // Puts the staged package in its place.
  void PutIn();
  void Complete();

 private:
  void Resume();
  void GoBack();
  void PutBack();
  void Move(const QString& from, const QString& to);
  void GiveWay(const QString& name, const QByteArray& expected);
  bool TakeBack();
  void RemoveHidden() const;
  QString KeptPath(const QString& name) const;
  QString Place(const QString& name) const { return folder_.filePath(name); }
  QString Hidden(const QString& kind, const QString& name = {}) const;
  QString Record() const;

  QDir folder_;
  QString identifier_;
  files::FolderLock hold_;
  PackageManifest ready_;                           // the staged package
  QStringList emptied_;                             // folders out of which files went
  std::vector<std::pair<QString, QString>> moves_;  // from, to
};

// Takes interrupted changes in the folder up again, unless another program is at one. What fails is logged,
// and tried again the next time.
void FinishInterruptedInstallations(const QString& folder);

}  // namespace vorlina
