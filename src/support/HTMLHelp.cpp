#include "support/HTMLHelp.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>

#include "base/AppPath.h"
#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/WaitCursor.h"
#include "support/HelpFiles.h"
#include "support/frmHelp.h"

namespace vorlina {
namespace {

const char16_t Title[] = u"HTML Help Class";
const QString Contents = QStringLiteral("HHDisplayContents");

void Tell(QWidget* owner, const QString& text, const QString& title = QString::fromUtf16(Title)) {
  TheDialogs().Message(owner != nullptr ? owner : QApplication::activeWindow(), text, BoxStyle::Plain, title);
}

QString PathOf(const QString& name) {
  const bool hasFolder = name.contains(u'/') || name.contains(u'\\');
  return hasFolder ? name : QDir(DeliveredPath()).filePath(name);
}

}  // namespace

bool HTMLHelp::EnsureFileExists(const QString& name, QWidget* owner) {
  const QFileInfo file(PathOf(name));
  const QString shown = QDir::toNativeSeparators(file.filePath());
  if (!file.isFile()) {
    Tell(
        owner,
        u"The file %1 does not exist.\nPlease make sure the correct path and file name have been specified."_qs
            .arg(shown));
    return false;
  }
  if (file.suffix().compare(u"qch", Qt::CaseInsensitive) == 0) return true;
  Tell(owner, shown + u" is not a valid HTML Help file."_qs);
  return false;
}

void HTMLHelp::Display(QWidget* owner, const QString& method, const Step& step) const {
  if (!EnsureFileExists(CHMFile, owner)) return;
  if (HHShowOnTop && owner == nullptr)
    return Tell(
        owner,
        u"The %1 method was called without a form being specified, while HHShowOnTop was set to True."_qs.arg(
            method));
  try {
    const WaitCursor wait;
    frmHelp& viewer = frmHelp::Open(PathOf(CHMFile));
    viewer.ComeToFront(HHShowOnTop ? owner : nullptr);
    step(viewer);
  } catch (const std::exception& error) {
    Tell(owner, DescriptionOf(error));
  }
}

// The text names the same method whichever was called, but for one.
void HTMLHelp::HHDisplayTopicID(QWidget* owner) const {
  Display(owner, Contents, [this](frmHelp& viewer) { viewer.ShowFirstOf({QString::number(HHTopicID)}); });
}

void HTMLHelp::HHDisplayTopicURL(QWidget* owner) const {
  Display(owner, Contents, [this](frmHelp& viewer) { viewer.ShowPage(HHTopicURL); });
}

void HTMLHelp::HHDisplayContents(QWidget* owner) const {
  Display(owner, Contents, [](frmHelp& viewer) { viewer.ShowPane(frmHelp::Pane::Contents); });
}

void HTMLHelp::HHDisplayIndex(QWidget* owner) const {
  Display(owner, Contents, [](frmHelp& viewer) { viewer.ShowPane(frmHelp::Pane::Index); });
}

void HTMLHelp::HHDisplaySearch(QWidget* owner) const {
  Display(owner, Contents, [](frmHelp& viewer) { viewer.ShowPane(frmHelp::Pane::Search); });
}

void HTMLHelp::HHDisplayKeyword(QWidget* owner) const {
  Display(owner, u"HHDisplayKeyword"_qs, [&](frmHelp& viewer) {
    if (viewer.ShowKeyword(HHKeyword)) return;
    if (HHDefaultURL.isEmpty())
      TheDialogs().Message(&viewer, HHMsgText, BoxStyle::Plain, HHMsgTitle);
    else
      viewer.ShowPage(HHDefaultURL);
  });
}

void HTMLHelp::DisplayFirstOf(const QStringList& names) const {
  Display(nullptr, Contents, [&](frmHelp& viewer) { viewer.ShowFirstOf(names); });
}

void HTMLHelp::HHClose() {
  if (frmHelp* viewer = frmHelp::Shown()) viewer->close();
}

void ShowHelpTopic(int topic, const QString& language) {
  HTMLHelp help;
  help.CHMFile = HelpFile(language);
  help.HHTopicID = topic;
  help.HHDisplayTopicID();
}

}  // namespace vorlina
