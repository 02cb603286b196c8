#include "support/FileDialog.h"

#include <QDir>
#include <QFileInfo>

#include "base/Settings.h"

namespace vorlina {
namespace {

const QChar Nul = QChar::Null;
const QString TwoNuls(2, Nul);

// As the system's own choosers tell it: one path as it is, of several the folder and then the names.
QString MultiFileName(const QStringList& files) {
  if (files.size() == 1) return files.first() + TwoNuls;
  QStringList pieces{QDir::toNativeSeparators(QFileInfo(files.first()).path())};
  for (const QString& file : files) pieces += QFileInfo(file).fileName();
  return pieces.join(Nul) + TwoNuls;
}

}  // namespace

void cFileDialog::ShowOpen() {
  Show((flags & MultipleSelection) != 0 ? Chooser::OpenSeveral : Chooser::Open, u".cFileDialog"_qs);
}

void cFileDialog::ShowSave() { Show(Chooser::Save, u".cFilenDialog"_qs); }

void cFileDialog::Show(Chooser kind, const QString& source) {
  const QString name = fileName_.section(Nul, 0, 0);
  FileChoice choice{DialogTitle, QString(Filter).replace(u':', u'|'),
                    name.isEmpty() ? InitDir : QDir(InitDir).filePath(name), DefaultExt, FilterIndex};
  QStringList files;
  try {
    files = TheDialogs().ChooseFiles(hwnd, kind, choice);
  } catch (const std::exception&) {
    // It counts as cancelled.
  }
  if (files.isEmpty()) {
    if (CancelError) throw DialogCancelled(ApplicationTitle() + source);
    return;
  }
  fileName_ = kind == Chooser::OpenSeveral ? MultiFileName(files) : files.first();
  FileTitle = files.size() == 1 ? QFileInfo(files.first()).fileName() : QString();
  FilterIndex = choice.filterIndex;
}

int cFileDialog::ParseMultiFileName(QString& folder, QStringList& names) const {
  const QStringList pieces = fileName_.left(fileName_.indexOf(TwoNuls)).split(Nul);
  if (pieces.size() > 1) {
    folder = pieces.first();
    names = pieces.sliced(1);
  } else {
    const QString& path = pieces.first();
    const qsizetype last = std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\'));
    folder = path.left(last + 1);
    names = {path.sliced(last + 1)};
  }
  return int(names.size());
}

}  // namespace vorlina
