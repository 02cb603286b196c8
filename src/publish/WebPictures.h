// Pictures for readers, made once and kept in the folder "Web pictures" of the application folder.
#pragma once

#include <QTemporaryDir>
#include <memory>
#include <utility>

#include "publish/plugin/IVorlinaPlugin.h"

namespace vorlina {

// The name of the folder. It holds nothing that could not be made again, and may be deleted at any time.
inline const QString WebPicturesFolder = QStringLiteral("Web pictures");

// A picture whose file has the size and times that it had is neither read nor made again. Where the folder
// cannot be written, what is missing in it is made in a temporary one. It is to live as long as what it made
// is in use.
class WebPictures : public IVorlinaPictures {
 public:
  // Throws Error where files can be written in neither folder.
  QList<VorlinaWebPictures> Prepare(const QStringList& sources, const QList<int>& sizes,
                                    IVorlinaProgress& progress) override;

  // Whether pictures were made in the temporary folder since this was asked before.
  bool TakeScratchUse() { return std::exchange(scratchUsed_, false); }

 private:
  std::unique_ptr<QTemporaryDir> scratch_;
  bool scratchUsed_ = false;
};

// Those that plug-ins are given, as long as the program runs.
IVorlinaPictures& PicturesForReaders();
// The same of these.
bool TakeScratchUse();

}  // namespace vorlina
