#include "PluginDialogs.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QUrl>
#include <QVBoxLayout>

#include "engine/CatalogLanguage.h"
#include "engine/Labels.h"

namespace vlhtml {
namespace {

QLabel* AddText(QDialog& dialog, QVBoxLayout& layout, const QString& text) {
  auto* label = new QLabel(text, &dialog);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setMinimumWidth(360);
  layout.addWidget(label);
  return label;
}

QPushButton* AddButton(QDialogButtonBox& buttons, QDialogButtonBox::ButtonRole role, const char* name,
                       const QString& text) {
  QPushButton* button = buttons.addButton(text, role);
  button->setObjectName(QLatin1String(name));
  return button;
}

void AddCancel(QDialogButtonBox& buttons, bool italian) {
  AddButton(buttons, QDialogButtonBox::RejectRole, "cmdCancel",
            italian ? QStringLiteral("&Annulla") : QStringLiteral("&Cancel"));
}

// The texts that a box shows beside its first one are labels of their own.
void PlainLabels(const QWidget& box) {
  for (QLabel* label : box.findChildren<QLabel*>()) label->setTextFormat(Qt::PlainText);
}

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

QString Told(const VorlinaReport& result, const QString& folder, const Languages& languages) {
  const bool italian = languages.italian;
  QString told = QDir::toNativeSeparators(folder);
  if (languages.siteItalian)
    told += italian ? QStringLiteral("\n\nLingua del sito: italiano.")
                    : QStringLiteral("\n\nLanguage of the site: Italian.");
  else
    told += italian ? QStringLiteral("\n\nLingua del sito: inglese.")
                    : QStringLiteral("\n\nLanguage of the site: English.");
  if (!result.notes.isEmpty())
    told += (italian ? QStringLiteral("\n\nAvvisi: %1. I dettagli li elencano.")
                     : QStringLiteral("\n\nWarnings: %1. The details list them."))
                .arg(result.notes.size());
  return told;
}

}  // namespace

QString AskSiteLanguage(QWidget* owner, bool italian, bool siteItalian) {
  QDialog dialog(owner);
  dialog.setObjectName(QStringLiteral("dlgSiteLanguage"));
  dialog.setWindowTitle(italian ? QStringLiteral("Lingua del sito") : QStringLiteral("Language of the site"));
  auto* layout = new QVBoxLayout(&dialog);
  AddText(dialog, *layout,
          italian
              ? QStringLiteral("In quale lingua sono i testi di questo catalogo? Anche i titoli e i pulsanti "
                               "del sito saranno in questa lingua.")
              : QStringLiteral("In which language are the texts of this catalog? The headings and buttons of "
                               "the site will be in this language too."));
  auto* optItalian = new QRadioButton(QStringLiteral("&Italiano"), &dialog);
  optItalian->setObjectName(QStringLiteral("optItalian"));
  auto* optEnglish = new QRadioButton(QStringLiteral("&English"), &dialog);
  optEnglish->setObjectName(QStringLiteral("optEnglish"));
  (siteItalian ? optItalian : optEnglish)->setChecked(true);
  (siteItalian ? optItalian : optEnglish)->setFocus();
  layout->addWidget(optItalian);
  layout->addWidget(optEnglish);
  auto* buttons = new QDialogButtonBox(&dialog);
  AddButton(*buttons, QDialogButtonBox::AcceptRole, "cmdContinue",
            italian ? QStringLiteral("&Continua") : QStringLiteral("C&ontinue"))
      ->setDefault(true);
  AddCancel(*buttons, italian);
  layout->addWidget(buttons);
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  if (dialog.exec() != QDialog::Accepted) return {};
  return optItalian->isChecked() ? QStringLiteral("Italian") : QStringLiteral("English");
}

SkinChoice AskSkin(QWidget* owner, bool italian, const QStringList& skins, const QString& current) {
  QDialog dialog(owner);
  dialog.setObjectName(QStringLiteral("dlgSkin"));
  dialog.setWindowTitle(italian ? QStringLiteral("Skin del sito") : QStringLiteral("Skin of the site"));
  auto* layout = new QVBoxLayout(&dialog);
  QLabel* text = AddText(dialog, *layout,
                         italian ? QStringLiteral("&Quale aspetto hanno i siti alla prossima pubblicazione?")
                                 : QStringLiteral("&What do sites look like when they are published next?"));
  auto* list = new QListWidget(&dialog);
  list->setObjectName(QStringLiteral("lstSkins"));
  list->setAccessibleName(dialog.windowTitle());
  list->addItems(skins);
  list->setCurrentRow(int(std::max<qsizetype>(0, skins.indexOf(current))));
  text->setBuddy(list);
  layout->addWidget(list);
  auto* buttons = new QDialogButtonBox(&dialog);
  AddButton(*buttons, QDialogButtonBox::AcceptRole, "cmdUse",
            italian ? QStringLiteral("&Usa") : QStringLiteral("&Use"))
      ->setDefault(true);
  SkinChoice choice;
  QObject::connect(AddButton(*buttons, QDialogButtonBox::ActionRole, "cmdInstall",
                             italian ? QStringLiteral("&Installa da un archivio…")
                                     : QStringLiteral("&Install from an archive…")),
                   &QPushButton::clicked, &dialog, [&] {
                     choice.fromArchive = true;
                     dialog.reject();
                   });
  AddCancel(*buttons, italian);
  layout->addWidget(buttons);
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  QObject::connect(list, &QListWidget::itemActivated, &dialog, &QDialog::accept);
  if (dialog.exec() == QDialog::Accepted && list->currentItem() != nullptr)
    choice.skin = list->currentItem()->text();
  return choice;
}

QString AskSkinArchive(QWidget* owner, bool italian) {
  static QString folder;  // where the last one was found
  QString archive = QFileDialog::getOpenFileName(
      owner, italian ? QStringLiteral("Installa skin") : QStringLiteral("Install skin"), folder,
      QStringLiteral("Skin (*.zip)"));
  if (!archive.isEmpty()) folder = QFileInfo(archive).path();
  return archive;
}

void TellSkinInstalled(QWidget* owner, bool italian, const QString& name) {
  QMessageBox box(QMessageBox::Information, QStringLiteral("Vorlina"),
                  (italian ? QStringLiteral("La skin \"%1\" sarà usata da ora in poi, per tutti i cataloghi.")
                           : QStringLiteral("The skin \"%1\" will be used from now on, for all catalogs."))
                      .arg(name),
                  QMessageBox::Ok, owner);
  box.setObjectName(QStringLiteral("msgSkinInstalled"));
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

QString AskTargetFolder(QWidget* owner, bool italian, const QString& former) {
  const QString title = italian ? QStringLiteral("Cartella del sito") : QStringLiteral("Folder of the site");
  return QFileDialog::getExistingDirectory(owner, title, former);
}

std::unique_ptr<IVorlinaProgress> MakeProgressWindow(QWidget* owner, bool italian) {
  return std::make_unique<WindowProgress>(owner, italian);
}

bool ShowResult(QWidget* owner, const VorlinaReport& result, const QString& folder,
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
  QStringList notes;
  for (const VorlinaNote& note : result.notes) notes += note.text;
  box.setDetailedText(notes.join(u'\n'));
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

}  // namespace vlhtml
