#include "products/WidgetImageList.h"

#include <QDropEvent>
#include <QFileInfo>
#include <QPainter>
#include <algorithm>
#include <functional>

#include "base/Helpers.h"
#include "base/Texts.h"
#include "base/WidgetRenameDelegate.h"
#include "grid/GridFiles.h"
#include "images/ShownPicture.h"
#include "images/WidgetPicture.h"
#include "products/PictureDrop.h"

namespace vorlina {
namespace {

constexpr int KeyRole = Qt::UserRole;

QString KeyOf(const QListWidgetItem& item) { return item.data(KeyRole).toString(); }

// Paints the picture of an entry, once there is one, where its item has an empty place.
class PictureDelegate : public WidgetRenameDelegate {
 public:
  using Find = std::function<QIcon(const QString& key)>;

  PictureDelegate(QListWidget& list, Find find) : WidgetRenameDelegate(list), find_(std::move(find)) {}

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    WidgetRenameDelegate::initStyleOption(option, index);
    const QIcon picture = find_(index.data(KeyRole).toString());
    if (!picture.isNull()) option->icon = picture;
  }

 private:
  Find find_;
};

}  // namespace

WidgetImageList::WidgetImageList(QWidget* parent)
    : QListWidget(parent),
      rename_(new PictureDelegate(*this, [this](const QString& key) { return pictures_.value(key).icon; })) {
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
    if (std::any_of(entries.begin(), entries.end(), [&](const Entry& entry) { return entry.key == key; }))
      continue;
    delete takeItem(row);
    pictures_.remove(key);
  }
  for (int row = 0; row < int(entries.size()); ++row) {
    const Entry& entry = entries[std::size_t(row)];
    if (row == count() || KeyOf(*item(row)) != entry.key) insertItem(row, new QListWidgetItem);
    Fill(*item(row), entry);
  }
  if (selected.isEmpty() || SelectedKey() != selected) setCurrentRow(0);
}

void WidgetImageList::Fill(QListWidgetItem& item, const Entry& entry) {
  Picture& picture = pictures_[entry.key];
  if (picture.path != entry.path) picture = {entry.path, entry.isMain, {}, {}, 0};
  const QFileInfo file(entry.path);
  if (!picture.icon.isNull() && (picture.written != file.lastModified() || picture.size != file.size()))
    Renew(entry.key);
  item.setData(KeyRole, entry.key);
  item.setFlags(item.flags().setFlag(Qt::ItemIsEditable, !entry.isMain));
  item.setData(Qt::DisplayRole, entry.text);
  item.setToolTip(PlainToolTip(entry.text));
  if (entry.isMain)
    item.setData(Qt::AccessibleTextRole, Texts::tr("Immagine principale: %1").arg(entry.text));
  if (item.icon().isNull()) item.setIcon(IconOf({}));
}

void WidgetImageList::Renew(const QString& key) {
  pictures_[key].icon = {};
  viewport()->update();
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
    if (pictures_[KeyOf(*item(row))].icon.isNull() &&
        visualItemRect(item(row)).intersects(viewport()->rect()))
      return item(row);
  return nullptr;
}

// Its picture is painted, which has the next one decoded.
void WidgetImageList::DecodeNext() {
  const QListWidgetItem* item = NextToDecode();
  if (item == nullptr) return;
  Picture& picture = pictures_[KeyOf(*item)];
  const QSize pixels = DevicePixels(*this, iconSize());
  const QFileInfo file(picture.path);
  picture.written = file.lastModified();
  picture.size = file.size();
  picture.icon = IconOf((picture.isMain ? ShowThumbnail : ShowPicture)(picture.path, pixels).image);
  viewport()->update(visualItemRect(item));
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
