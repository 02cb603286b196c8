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
#include <memory>

#include "PluginDialogs.h"
#include "engine/CatalogLanguage.h"
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

// The progress window; the program stays painted while it shows. It comes with the first report, so that it
// does not show over a question before.
class WindowProgress : public IVorlinaProgress {
 public:
  WindowProgress(QWidget* owner, bool italian) : owner_(owner), italian_(italian) {}

  bool Report(int done, int total, const QString& step) override {
    if (!dialog_) Make();
    dialog_->setLabelText(step);
    dialog_->setMaximum(total);
    dialog_->setValue(done);
    QApplication::processEvents();
    return !dialog_->wasCanceled();
  }

 private:
  void Make() {
    dialog_ = std::make_unique<QProgressDialog>(
        QString(), italian_ ? QStringLiteral("&Annulla") : QStringLiteral("&Cancel"), 0, 1, owner_);
    dialog_->setObjectName(QStringLiteral("prgPublish"));
    dialog_->setWindowTitle(italian_ ? QStringLiteral("Pubblicazione") : QStringLiteral("Publishing"));
    dialog_->setWindowModality(Qt::ApplicationModal);
    dialog_->setMinimumDuration(300);
    dialog_->setMinimumWidth(360);
    dialog_->setAutoReset(false);
    dialog_->setAutoClose(false);
    PlainLabels(*dialog_);
  }

  QWidget* owner_;
  bool italian_;
  std::unique_ptr<QProgressDialog> dialog_;
};

// Another catalog's site goes with all its pages, so that nothing but a plain yes replaces it.
bool AskReplace(QWidget* owner, bool italian, const QString& title, const QString& folder) {
  QMessageBox box(QMessageBox::Question, QStringLiteral("Vorlina"), QString(), QMessageBox::NoButton, owner);
  box.setObjectName(QStringLiteral("msgReplaceSite"));
  box.setTextFormat(Qt::PlainText);
  const QString named = title.isEmpty() ? QString() : QStringLiteral(" (\"%1\")").arg(title);
  box.setText((italian ? QStringLiteral("La cartella contiene il sito di un altro catalogo%1. Sostituirlo?")
                       : QStringLiteral("The folder holds the site of another catalog%1. Replace it?"))
                  .arg(named));
  box.setInformativeText(
      (italian ? QStringLiteral(
                     "%1\n\nLe pagine di quel sito saranno eliminate. Per conservarle, rispondere No e "
                     "scegliere un'altra cartella.")
               : QStringLiteral("%1\n\nThe pages of that site will be deleted. To keep them, answer No and "
                                "choose another folder."))
          .arg(QDir::toNativeSeparators(folder)));
  PlainLabels(box);
  const QPushButton* yes =
      box.addButton(italian ? QStringLiteral("&Sì") : QStringLiteral("&Yes"), QMessageBox::YesRole);
  QPushButton* no = box.addButton(QStringLiteral("&No"), QMessageBox::NoRole);
  box.setDefaultButton(no);
  box.setEscapeButton(no);
  box.exec();
  return box.clickedButton() == yes;
}

QString Told(const PublishResult& result, const QString& folder, const Languages& languages) {
  const bool italian = languages.italian;
  QString told = QDir::toNativeSeparators(folder);
  if (languages.siteItalian)
    told += italian ? QStringLiteral("\n\nLingua del sito: italiano.")
                    : QStringLiteral("\n\nLanguage of the site: Italian.");
  else
    told += italian ? QStringLiteral("\n\nLingua del sito: inglese.")
                    : QStringLiteral("\n\nLanguage of the site: English.");
  if (!result.warnings.isEmpty())
    told += (italian ? QStringLiteral("\n\nAvvisi: %1. I dettagli li elencano.")
                     : QStringLiteral("\n\nWarnings: %1. The details list them."))
                .arg(result.warnings.size());
  return told;
}

// True when the user wants another language for the site.
bool ShowResult(QWidget* owner, const PublishResult& result, const QString& folder,
                const Languages& languages) {
  const bool italian = languages.italian;
  QMessageBox box(QMessageBox::Information, QStringLiteral("Vorlina"), QString(), QMessageBox::NoButton,
                  owner);
  box.setObjectName(QStringLiteral("msgPublished"));
  box.setTextFormat(Qt::PlainText);
  box.setText(italian ? QStringLiteral("Il sito è pronto: %1 pagine.").arg(result.pages)
                      : QStringLiteral("The site is ready: %1 pages.").arg(result.pages));
  box.setInformativeText(Told(result, folder, languages));
  PlainLabels(box);
  box.setDetailedText(result.warnings.join(u'\n'));
  QPushButton* open = box.addButton(
      italian ? QStringLiteral("&Apri il sito") : QStringLiteral("&Open the site"), QMessageBox::AcceptRole);
  QPushButton* language =
      box.addButton(italian ? QStringLiteral("Altra &lingua…") : QStringLiteral("Other &language…"),
                    QMessageBox::ActionRole);
  language->setObjectName(QStringLiteral("cmdLanguage"));
  QPushButton* close =
      box.addButton(italian ? QStringLiteral("&Chiudi") : QStringLiteral("&Close"), QMessageBox::RejectRole);
  box.setDefaultButton(close);
  box.setEscapeButton(close);
  box.exec();
  if (box.clickedButton() == open)
    QDesktopServices::openUrl(QUrl::fromLocalFile(folder + QStringLiteral("/index.html")));
  return box.clickedButton() == language;
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
  QString language = RememberedLanguage(connection, IDCatalogo);
  if (language.isEmpty())
    language = AskSiteLanguage(owner, italian_, LooksItalian(connection, IDCatalogo, italian_));
  if (language.isEmpty()) return {};
  const QString title = italian_ ? QStringLiteral("Cartella del sito") : QStringLiteral("Folder of the site");
  const QString folder =
      QFileDialog::getExistingDirectory(owner, title, RememberedTarget(connection, IDCatalogo));
  if (folder.isEmpty()) return {};
  while (!language.isEmpty()) {
    const Languages languages{italian_, language == u"Italian"};
    PublishResult result;
    {
      WindowProgress progress(owner, italian_);
      result = PublishSite(connection, IDCatalogo, folder, CurrentSkin(host_), languages, progress,
                           [&](const QString& other) { return AskReplace(owner, italian_, other, folder); });
    }
    if (!result.complete) return {};
    RememberTarget(connection, IDCatalogo, folder);
    RememberLanguage(connection, IDCatalogo, language);
    if (!ShowResult(owner, result, folder, languages)) return {};
    language = AskSiteLanguage(owner, italian_, !languages.siteItalian);
  }
  return {};
}

QVariant Plugin::InstallSkin(QString& skin) {
  QWidget* owner = QApplication::activeWindow();
  QString archive = skin;
  QString name;
  if (archive.isEmpty()) {
    const SkinChoice choice =
        AskSkin(owner, italian_, Skins(host_), QFileInfo(CurrentSkin(host_)).fileName());
    name = choice.skin;
    if (!name.isEmpty()) UseSkin(name, host_);
    if (choice.fromArchive)
      archive = QFileDialog::getOpenFileName(
          owner, italian_ ? QStringLiteral("Installa skin") : QStringLiteral("Install skin"), {},
          QStringLiteral("Skin (*.zip)"));
  }
  if (!archive.isEmpty()) name = InstallSkinArchive(archive, host_);
  if (name.isEmpty()) return {};
  QMessageBox box(
      QMessageBox::Information, QStringLiteral("Vorlina"),
      (italian_ ? QStringLiteral("La skin \"%1\" sarà usata da ora in poi, per tutti i cataloghi.")
                : QStringLiteral("The skin \"%1\" will be used from now on, for all catalogs."))
          .arg(name),
      QMessageBox::Ok, owner);
  box.setObjectName(QStringLiteral("msgSkinInstalled"));
  box.setTextFormat(Qt::PlainText);
  box.exec();
  return {};
}

// The language is the one asked for in this run, then the catalog's, then the program's.
bool FolderPublisher::PublishTo(IVorlinaConnection& connection, int IDCatalogo, const QString& folder,
                                IVorlinaProgress& progress) {
  QString language = host_.askedLanguage;
  if (language.isEmpty()) language = RememberedLanguage(connection, IDCatalogo);
  if (language.isEmpty()) language = host_.language;
  const Languages languages{host_.language == u"Italian", language == u"Italian"};
  const PublishResult result =
      PublishSite(connection, IDCatalogo, folder, CurrentSkin(host_), languages, progress);
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
