#include "Plugin.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QUrl>

#include "engine/SitePublisher.h"
#include "engine/SkinFolders.h"
#include "engine/TargetMemory.h"

// The picture lies in this library.
static void InitPicture() { Q_INIT_RESOURCE(vlhtml); }

namespace vlhtml {
namespace {

// The texts that a box shows beside its first one are labels of their own.
void PlainLabels(const QWidget& box) {
  for (QLabel* label : box.findChildren<QLabel*>()) label->setTextFormat(Qt::PlainText);
}

// The progress window; the program stays painted while it shows.
class WindowProgress : public IVorlinaProgress {
 public:
  WindowProgress(QWidget* owner, bool italian)
      : dialog_(QString(), italian ? QStringLiteral("&Annulla") : QStringLiteral("&Cancel"), 0, 1, owner) {
    dialog_.setObjectName(QStringLiteral("prgPublish"));
    dialog_.setWindowTitle(italian ? QStringLiteral("Pubblicazione") : QStringLiteral("Publishing"));
    dialog_.setWindowModality(Qt::ApplicationModal);
    dialog_.setMinimumDuration(300);
    dialog_.setMinimumWidth(360);
    dialog_.setAutoReset(false);
    dialog_.setAutoClose(false);
    PlainLabels(dialog_);
  }

  bool Report(int done, int total, const QString& step) override {
    dialog_.setLabelText(step);
    dialog_.setMaximum(total);
    dialog_.setValue(done);
    QApplication::processEvents();
    return !dialog_.wasCanceled();
  }

 private:
  QProgressDialog dialog_;
};

void ShowResult(QWidget* owner, bool italian, const PublishResult& result, const QString& folder) {
  QMessageBox box(QMessageBox::Information, QStringLiteral("Vorlina"), QString(), QMessageBox::NoButton,
                  owner);
  box.setObjectName(QStringLiteral("msgPublished"));
  box.setTextFormat(Qt::PlainText);
  box.setText(italian ? QStringLiteral("Il sito è pronto: %1 pagine.").arg(result.pages)
                      : QStringLiteral("The site is ready: %1 pages.").arg(result.pages));
  QString informative = QDir::toNativeSeparators(folder);
  if (!result.warnings.isEmpty())
    informative += (italian ? QStringLiteral("\n\n%1 immagini mancano e sono state tralasciate.")
                            : QStringLiteral("\n\n%1 pictures are missing and were left out."))
                       .arg(result.warnings.size());
  box.setInformativeText(informative);
  PlainLabels(box);
  box.setDetailedText(result.warnings.join(u'\n'));
  QPushButton* open = box.addButton(
      italian ? QStringLiteral("&Apri il sito") : QStringLiteral("&Open the site"), QMessageBox::AcceptRole);
  QPushButton* close =
      box.addButton(italian ? QStringLiteral("&Chiudi") : QStringLiteral("&Close"), QMessageBox::RejectRole);
  box.setDefaultButton(close);
  box.setEscapeButton(close);
  box.exec();
  if (box.clickedButton() == open)
    QDesktopServices::openUrl(QUrl::fromLocalFile(folder + QStringLiteral("/index.html")));
}

}  // namespace

QString Plugin::GetPluginName() {
  return italian_ ? QStringLiteral("Sito HTML") : QStringLiteral("HTML site");
}

QIcon Plugin::GetPluginIcon() {
  InitPicture();
  // The same picture where the entry is selected: it is not tinted.
  QIcon icon;
  for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected})
    icon.addFile(QStringLiteral(":/vlhtml/site.svg"), {}, mode);
  return icon;
}

QString Plugin::GetPluginDescription() {
  return italian_
             ? QStringLiteral(
                   "Crea un sito web con una pagina per ogni prodotto, da mettere sul proprio spazio web o "
                   "da aprire "
                   "direttamente dalla cartella. Solo i prodotti e i valori da pubblicare ne fanno parte.")
             : QStringLiteral(
                   "Makes a web site with a page for each product, to be put on your web space or opened "
                   "straight "
                   "from its folder. Only published products and values are part of it.");
}

QVariant Plugin::Publish(IVorlinaConnection& connection, int& IDCatalogo) {
  QWidget* owner = QApplication::activeWindow();
  const QString title = italian_ ? QStringLiteral("Cartella del sito") : QStringLiteral("Folder of the site");
  const QString folder =
      QFileDialog::getExistingDirectory(owner, title, RememberedTarget(connection, IDCatalogo));
  if (folder.isEmpty()) return {};
  PublishResult result;
  {
    WindowProgress progress(owner, italian_);
    result = PublishSite(connection, IDCatalogo, folder, CurrentSkin(host_), italian_, progress);
  }
  if (!result.complete) return {};
  RememberTarget(connection, IDCatalogo, folder);
  ShowResult(owner, italian_, result, folder);
  return {};
}

QVariant Plugin::InstallSkin(QString& skin) {
  QWidget* owner = QApplication::activeWindow();
  QString archive = skin;
  if (archive.isEmpty())
    archive = QFileDialog::getOpenFileName(
        owner, italian_ ? QStringLiteral("Installa skin") : QStringLiteral("Install skin"), {},
        QStringLiteral("Skin (*.zip)"));
  if (archive.isEmpty()) return {};
  const QString name = InstallSkinArchive(archive, host_);
  QMessageBox box(QMessageBox::Information, QStringLiteral("Vorlina"),
                  (italian_ ? QStringLiteral("La skin \"%1\" è installata e sarà usata da ora in poi.")
                            : QStringLiteral("The skin \"%1\" is installed and will be used from now on."))
                      .arg(name),
                  QMessageBox::Ok, owner);
  box.setObjectName(QStringLiteral("msgSkinInstalled"));
  box.setTextFormat(Qt::PlainText);
  box.exec();
  return {};
}

bool FolderPublisher::PublishTo(IVorlinaConnection& connection, int IDCatalogo, const QString& folder,
                                IVorlinaProgress& progress) {
  const PublishResult result =
      PublishSite(connection, IDCatalogo, folder, CurrentSkin(host_), host_.language == u"Italian", progress);
  for (const QString& warning : result.warnings) progress.Warn(warning);
  return result.complete;
}

std::unique_ptr<IVorlinaPlugin> Factory::CreatePlugin(const VorlinaHost& host) {
  return std::make_unique<Plugin>(host);
}

std::unique_ptr<IVorlinaFolderPublisher> Factory::CreateFolderPublisher(const VorlinaHost& host) {
  return std::make_unique<FolderPublisher>(host);
}

}  // namespace vlhtml
