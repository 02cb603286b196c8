// A list of pictures, each with its description, that are known by keys. The pictures are decoded one at a
// time while nothing else is to do, and only those that are seen. Descriptions are typed over in place, and
// picture files can be dropped.
#pragma once

#include <QDateTime>
#include <QHash>
#include <QIcon>
#include <QListWidget>
#include <QTimer>
#include <optional>
#include <vector>

namespace vorlina {

class WidgetRenameDelegate;

class WidgetImageList : public QListWidget {
  Q_OBJECT

 public:
  struct Entry {
    QString key;
    QString text;
    QString path;
    bool isMain = false;  // has a thumbnail, and its text is not changed here
  };

  explicit WidgetImageList(QWidget* parent = nullptr);

  // Brings the list to these entries. What stays keeps its picture and the selection; where what was selected
  // is gone the first entry is. Not to be called while a text is being typed.
  void Show(const std::vector<Entry>& entries);
  // The file of an entry has another content.
  void Renew(const QString& key);

  // "" where none is selected.
  QString SelectedKey() const;
  void Select(const QString& key);

  bool IsRenaming() const;
  // Ends an edit that is open, as if it had been left.
  void FinishRename();

 Q_SIGNALS:
  // An entry was pressed, or become the current one.
  void Picked();
  // Another text, which is not empty, was typed over an entry's; its editor is gone.
  void Renamed(const QString& key, const QString& text);
  // An edit has ended, with another text or without.
  void RenameEnded();
  void DeletePressed();
  void FilesDropped(const QStringList& files);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  struct NewText {
    QString key;
    QString text;
  };
  struct Picture {
    QString path;
    bool isMain = false;
    QIcon icon;         // null until it is decoded
    QDateTime written;  // the file, when it was decoded
    qint64 size = 0;
  };

  QListWidgetItem* Find(const QString& key) const;
  void Fill(QListWidgetItem& item, const Entry& entry);
  void HandOver();
  QListWidgetItem* NextToDecode() const;
  void DecodeNext();
  QIcon IconOf(const QImage& picture) const;

  WidgetRenameDelegate* rename_;
  std::optional<NewText> newText_;    // typed, its editor not yet gone
  QHash<QString, Picture> pictures_;  // by key; not in the items, which would lay the list out for each anew
  QTimer decode_;
};

}  // namespace vorlina
