#include "products/WidgetImageList.h"

#include <QDropEvent>
#include <QPainter>
#include <algorithm>

#include "base/Helpers.h"
#include "base/Texts.h"
#include "base/WidgetRenameDelegate.h"
#include "grid/GridFiles.h"
#include "images/ShownPicture.h"
#include "images/WidgetPicture.h"
#include "products/PictureDrop.h"

namespace vorlina {
namespace {

enum Role { KeyRole = Qt::UserRole, PathRole, MainRole, DecodedRole };

QString KeyOf(const QListWidgetItem& item) { return item.data(KeyRole).toString(); }

}  // namespace

WidgetImageList::WidgetImageList(QWidget* parent)
    : QListWidget(parent), rename_(new WidgetRenameDelegate(*this)) {
  setEditTriggers(EditKeyPressed);
  setDragDropMode(DropOnly);
  decode_.setSingleShot(true);
  connect(&decode_, &QTimer::timeout, this, &WidgetImageList::DecodeNext);
  connect(this, &QListWidget::currentItemChanged, this, &WidgetImageList::Picked);
  connect(this, &QListWidget::itemPressed, this, &WidgetImageList::Picked);
  connect(rename_, &WidgetRenameDelegate::Renamed, this,
          [this](const QModelIndex& index, const QString& text) {
            newText_ = {KeyOf(*item(index.row())), text};
          });
  connect(
      rename_, &WidgetRenameDelegate::closeEditor, this,
      [this] {
        HandOver();
        Q_EMIT RenameEnded();
      },
      Qt::QueuedConnection);
}

QListWidgetItem* WidgetImageList::Find(const QString& key) const {
  for (int row = 0; row < count(); ++row)
    if (KeyOf(*item(row)) == key) return item(row);
  return nullptr;
}

void WidgetImageList::Show(const std::vector<Entry>& entries) {
  const QString selected = SelectedKey();
  for (int row = count() - 1; row >= 0; --row) {
    const QString key = KeyOf(*item(row));
    if (std::none_of(entries.begin(), entries.end(), [&](const Entry& entry) { return entry.key == key; }))
      delete takeItem(row);
  }
  for (int row = 0; row < int(entries.size()); ++row) {
    const Entry& entry = entries[std::size_t(row)];
    if (row == count() || KeyOf(*item(row)) != entry.key) insertItem(row, new QListWidgetItem);
    Fill(*item(row), entry);
  }
  if (selected.isEmpty() || SelectedKey() != selected) setCurrentRow(0);
}

void WidgetImageList::Fill(QListWidgetItem& item, const Entry& entry) const {
  const bool isNew = KeyOf(item) != entry.key || item.data(PathRole) != entry.path;
  item.setData(KeyRole, entry.key);
  item.setData(PathRole, entry.path);
  item.setData(MainRole, entry.isMain);
  item.setFlags(item.flags().setFlag(Qt::ItemIsEditable, !entry.isMain));
  item.setData(Qt::DisplayRole, entry.text);
  item.setToolTip(PlainToolTip(entry.text));
  if (entry.isMain)
    item.setData(Qt::AccessibleTextRole, Texts::tr("Immagine principale: %1").arg(entry.text));
  if (!isNew) return;
  item.setData(DecodedRole, false);
  item.setIcon(IconOf({}));
}

void WidgetImageList::Renew(const QString& key) {
  if (QListWidgetItem* item = Find(key)) item->setData(DecodedRole, false);
}

QString WidgetImageList::SelectedKey() const {
  const QListWidgetItem* item = currentItem();
  return item != nullptr && item->isSelected() ? KeyOf(*item) : QString();
}

void WidgetImageList::Select(const QString& key) {
  if (QListWidgetItem* item = Find(key)) setCurrentItem(item);
}

bool WidgetImageList::IsRenaming() const { return rename_->IsOpen(); }

void WidgetImageList::FinishRename() {
  rename_->Finish();
  HandOver();
}

void WidgetImageList::HandOver() {
  if (!newText_) return;
  const NewText typed = *std::exchange(newText_, std::nullopt);
  const QListWidgetItem* item = Find(typed.key);
  if (item != nullptr && item->text() != typed.text && !typed.text.trimmed().isEmpty())
    Q_EMIT Renamed(typed.key, typed.text);
}

void WidgetImageList::paintEvent(QPaintEvent* event) {
  QListWidget::paintEvent(event);
  if (NextToDecode() != nullptr) decode_.start();
}

QListWidgetItem* WidgetImageList::NextToDecode() const {
  for (int row = 0; row < count(); ++row)
    if (!item(row)->data(DecodedRole).toBool() && visualItemRect(item(row)).intersects(viewport()->rect()))
      return item(row);
  return nullptr;
}

// Its new picture is painted, which has the next one decoded.
void WidgetImageList::DecodeNext() {
  QListWidgetItem* item = NextToDecode();
  if (item == nullptr) return;
  item->setData(DecodedRole, true);
  const QSize pixels = DevicePixels(*this, iconSize());
  const QString path = item->data(PathRole).toString();
  item->setIcon(IconOf(item->data(MainRole).toBool() ? ShowThumbnail(path, pixels).image
                                                     : ShowPicture(path, pixels).image));
}

// All of one size, so that the texts stand in line; an empty frame where there is no picture.
QIcon WidgetImageList::IconOf(const QImage& picture) const {
  QPixmap place(DevicePixels(*this, iconSize()));
  place.fill(Qt::transparent);
  QPainter painter(&place);
  if (picture.isNull()) {
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(place.rect().adjusted(0, 0, -1, -1));
  } else {
    const QImage fitted = picture.scaled(place.size(), Qt::KeepAspectRatio, Qt::SmoothTransformation);
    painter.drawImage((place.width() - fitted.width()) / 2, (place.height() - fitted.height()) / 2, fitted);
  }
  painter.end();
  place.setDevicePixelRatio(devicePixelRatioF());
  QIcon icon(place);
  icon.addPixmap(place, QIcon::Selected);
  return icon;
}

// A key that is held down deletes one.
void WidgetImageList::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Delete || event->modifiers() != Qt::NoModifier || state() == EditingState)
    return QListWidget::keyPressEvent(event);
  if (!event->isAutoRepeat()) Q_EMIT DeletePressed();
}

void WidgetImageList::dragEnterEvent(QDragEnterEvent* event) { dragMoveEvent(event); }

void WidgetImageList::dragMoveEvent(QDragMoveEvent* event) {
  event->setDropAction(Qt::CopyAction);
  event->setAccepted(!LocalFiles(*event, &PictureDrop::IsPicture).isEmpty());
}

void WidgetImageList::dropEvent(QDropEvent* event) {
  QStringList files = LocalFiles(*event, &PictureDrop::IsPicture);
  files.removeIf([](const QString& file) { return !PictureDrop::IsPicture(file); });
  if (files.isEmpty()) return event->ignore();
  event->setDropAction(Qt::CopyAction);
  event->accept();
  Q_EMIT FilesDropped(files);
}

}  // namespace vorlina
