#include "shell/ShellHelp.h"

#include "support/HTMLHelp.h"
#include "support/HelpFiles.h"
#include "support/Language.h"

namespace vorlina {
namespace {
constexpr int CatalogsTopic = 1000;
}  // namespace

void ShowCatalogsHelp() { ShowHelpTopic(CatalogsTopic, u"Italian"_qs); }

void ShowHelpContents() {
  HTMLHelp help;
  help.CHMFile = HelpFile(Language);
  help.HHDisplayContents();
}

void ShowHelpFor(const QStringList& names) {
  HTMLHelp help;
  help.CHMFile = HelpFile(Language);
  help.DisplayFirstOf(names);
}

}  // namespace vorlina
