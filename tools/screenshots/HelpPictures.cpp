#include "HelpPictures.h"

#include <QLineEdit>

#include "Photographer.h"
#include "support/HTMLHelp.h"
#include "support/frmHelp.h"

namespace vorlina {

void TakeHelp(const Photographer& photographer, const QString& file, const QString& language) {
  HTMLHelp help;
  help.CHMFile = file;
  help.HHTopicID = 1000;
  help.HHDisplayTopicID();
  frmHelp* viewer = frmHelp::Shown();
  if (viewer == nullptr) return;
  photographer.TakeAtRest(*viewer, u"frmHelp"_qs);
  help.HHDisplayIndex();
  photographer.TakeAtRest(*viewer, u"frmHelp-index"_qs);
  help.HHDisplaySearch();
  auto* words = viewer->findChild<QLineEdit*>(u"txtSearch"_qs);
  words->setText(language == u"Italian" ? u"immagine"_qs : u"picture"_qs);
  Press(*words, Qt::Key_Return);
  photographer.TakeAtRest(*viewer, u"frmHelp-search"_qs);
  HTMLHelp::HHClose();
}

}  // namespace vorlina
