// The system's choosers of files, with the settings of one dialog in an object.
#pragma once

#include <QString>
#include <QStringList>

#include "base/Dialogs.h"
#include "base/Error.h"

namespace vorlina {

// A chooser was cancelled, where that is an error.
class DialogCancelled : public Error {
 public:
  static constexpr int Number = 32755;

  explicit DialogCancelled(QString source) : Error(u"User selected cancel."_qs), source_(std::move(source)) {}
  // The program's title, and what raised it.
  const QString& Source() const { return source_; }

 private:
  QString source_;
};

// Cancelled, it leaves all as it was.
class cFileDialog {
 public:
  static constexpr int MultipleSelection = 512;

  bool CancelError = false;  // whether cancelling throws DialogCancelled
  QString FileTitle;         // out: the name without the folder; "" for several
  QString Filter;            // pairs of description and pattern; ":" and "|" both separate
  int FilterIndex = 1;       // the chosen entry of the filter, from 1
  QString DefaultExt;        // what a name without an ending gets
  QString DialogTitle;
  int flags = 0;  // MultipleSelection alone counts
  QWidget* hwnd = nullptr;
  QString InitDir;

  // In: the initial name, at most 1024 characters. Out: the path chosen, and with MultipleSelection what
  // ParseMultiFileName takes apart.
  const QString& FileName() const { return fileName_; }
  void SetFileName(const QString& name) { fileName_ = name.left(1024); }

  void ShowOpen();
  void ShowSave();

  // The folder and the names of a multiple selection; how many names there are. The folder ends in a
  // separator where there is one name alone, and is empty where that has none.
  int ParseMultiFileName(QString& folder, QStringList& names) const;

 private:
  void Show(Chooser kind, const QString& source);

  QString fileName_;
};

}  // namespace vorlina
