#include "catalogs/frmBackups.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QLoggingCategory>
#include <QPushButton>
#include <QStandardPaths>
#include <algorithm>

#include "base/AppPath.h"
#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/LastFolder.h"
#include "base/Texts.h"
#include "catalogs/AutomaticBackup.h"
#include "catalogs/Backup.h"
#include "catalogs/RestoreSwap.h"
#include "store/CatalogDatabase.h"
#include "ui_frmBackups.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(catalogs, "vorlina.catalogs", QtInfoMsg)

constexpr int SourceRole = Qt::UserRole;
constexpr int MadeRole = Qt::UserRole + 1;
constexpr int SizeColumn = 3;

// Which of them keeps what was there before the last restore; one may lie there without a database.
QString NewestFormer() {
  QString newest;
  for (const QString& former : FormerFolders(AppPath()))
    if (QFileInfo::exists(QDir(former).filePath(DatabaseName)) &&
        (newest.isEmpty() || QFileInfo(former).lastModified() > QFileInfo(newest).lastModified()))
      newest = former;
  return newest;
}

}  // namespace

QString BackupFolder() {
  const QString last = LastFolder(purpose::Backups);
  return last.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) : last;
}

frmBackups::frmBackups(QWidget* parent) : QDialog(parent), ui_(new Ui::frmBackups) {
  ui_->setupUi(this);
  connect(ui_->cmdRestore, &QPushButton::clicked, this, &frmBackups::ChooseSelected);
  connect(ui_->cmdFile, &QPushButton::clicked, this, &frmBackups::ChooseFile);
  connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(ui_->lstBackups, &QTreeWidget::itemDoubleClicked, this, &frmBackups::ChooseSelected);
  connect(ui_->lstBackups, &QTreeWidget::itemSelectionChanged, this, &frmBackups::KeepSelection);
}

frmBackups::~frmBackups() = default;

void frmBackups::LoadForm() {
  ui_->retranslateUi(this);
  for (const AutomaticBackup& copy : AutomaticBackups())
    Add(copy.made, copy.reason, Texts::tr("solo il database"), copy.size, copy.file);
  for (const QString& former : FormerFolders(AppPath())) AddFormer(former);
  QTreeWidget& list = *ui_->lstBackups;
  const int gap = 2 * fontMetrics().averageCharWidth();
  for (int column = 0; column <= SizeColumn; ++column) {
    list.resizeColumnToContents(column);
    list.setColumnWidth(column, list.columnWidth(column) + gap);
  }
  list.headerItem()->setTextAlignment(SizeColumn, Qt::AlignRight | Qt::AlignVCenter);
  list.setCurrentItem(list.topLevelItem(0));
  if (list.topLevelItemCount() == 0) SayNone();
}

void frmBackups::SayNone() {
  auto* item = new QTreeWidgetItem(ui_->lstBackups, {Texts::tr("Non ci sono ancora copie automatiche.")});
  item->setFirstColumnSpanned(true);
  item->setFlags(Qt::ItemIsEnabled);
  ui_->cmdRestore->setEnabled(false);
  ui_->cmdFile->setFocus();
}

// A click beside the copies takes nothing away: what shows as selected is what is restored.
void frmBackups::KeepSelection() {
  QTreeWidgetItem* current = ui_->lstBackups->currentItem();
  if (current != nullptr && ui_->lstBackups->selectedItems().isEmpty()) current->setSelected(true);
}

void frmBackups::Add(const QDateTime& made, const QString& before, const QString& holds, qint64 size,
                     const QString& source) {
  const QLocale locale;
  // Copies are soon made within one minute.
  QString format = locale.dateTimeFormat(QLocale::ShortFormat);
  if (!format.contains(u's')) format.replace(u"mm"_qs, u"mm:ss"_qs);
  auto* item =
      new QTreeWidgetItem({locale.toString(made, format), before, holds, locale.formattedDataSize(size)});
  item->setTextAlignment(SizeColumn, Qt::AlignRight | Qt::AlignVCenter);
  item->setData(0, SourceRole, source);
  item->setData(0, MadeRole, made);
  int newer = 0;
  const QTreeWidget& list = *ui_->lstBackups;
  while (newer < list.topLevelItemCount() && list.topLevelItem(newer)->data(0, MadeRole).toDateTime() > made)
    ++newer;
  ui_->lstBackups->insertTopLevelItem(newer, item);
}

// What cannot be read, or is no database of ours, is left out, and so is a database alone that was kept by
// itself just before it went.
void frmBackups::AddFormer(const QString& former) {
  const QDateTime made = QFileInfo(former).lastModified();
  const std::vector<AutomaticBackup> copies = AutomaticBackups();
  constexpr qint64 AMinute = 60;
  const bool isKept = std::any_of(copies.begin(), copies.end(), [&](const AutomaticBackup& copy) {
    const qint64 after = copy.made.secsTo(made);
    return copy.reason == Texts::tr("ripristino") && after >= 0 && after < AMinute;
  });
  try {
    const RestoreOffer offer = ReadOffer(former);
    const bool everything = offer.scope == RestoreScope::Everything;
    if ((everything || !isKept) && IsOwnDatabase(QDir(former).filePath(DatabaseName)))
      Add(made, former == NewestFormer() ? Texts::tr("ultimo ripristino") : Texts::tr("ripristino"),
          everything ? Texts::tr("database, immagini e layout") : Texts::tr("solo il database"),
          offer.manifest.TotalSize(), QDir::toNativeSeparators(former));
  } catch (const Error& error) {
    qCDebug(catalogs) << "not offered" << error.Description();
  }
}

void frmBackups::ChooseSelected() {
  const QList<QTreeWidgetItem*> selected = ui_->lstBackups->selectedItems();
  if (!selected.isEmpty()) Choose(selected.first()->data(0, SourceRole).toString());
}

void frmBackups::ChooseFile() {
  const QString file = TheDialogs().OpenFile(this, Texts::tr("Ripristina una copia di sicurezza"),
                                             Texts::tr("Copie di sicurezza|*.zip;*.db"), BackupFolder());
  if (file.isEmpty()) return;
  RememberFolderOf(purpose::Backups, file);
  Choose(file);
}

// Once: what is pressed twice must not restore twice.
void frmBackups::Choose(const QString& source) {
  if (!isVisible()) return;
  accept();
  Q_EMIT Chosen(source);
}

}  // namespace vorlina
