#include "PluginDialogs.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

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

}  // namespace vlhtml
