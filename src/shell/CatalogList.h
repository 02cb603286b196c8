// The list of catalogs in the main window: what it shows of the rows of Cataloghi, which of them is selected,
// and the names that are typed over its labels.
#pragma once

#include <QModelIndex>
#include <QObject>
#include <optional>
#include <vector>

class QListWidget;
class QListWidgetItem;

namespace vorlina {

class Connection;
class Recordset;
class WidgetRenameDelegate;

class CatalogList : public QObject {
  Q_OBJECT

 public:
  // Boxes belong to the owner. All of them outlive it.
  CatalogList(QListWidget& list, Recordset& rsCataloghi, const Connection& connection, QWidget& owner);

  // Reads the catalogs anew; while a name is being typed, when that ends. The selection is kept by the
  // catalog's identifier, so that coming back to the window does not lose it. Throws Error without a
  // database.
  void Fill();
  int Count() const;

  // Null and 0 when no catalog is selected.
  QListWidgetItem* Selected() const;
  int SelectedId() const;
  // What the next command works on is then what was made last.
  void SelectNewest();

  bool IsRenaming() const;
  // A name that is being typed is stored before anything else begins. False where it was refused, which has
  // been told.
  bool EndRename();

 Q_SIGNALS:
  // A name was typed to its end, and the list has waited for it to be read anew.
  void FillWanted();

 private:
  // What was typed over a label and is not stored yet.
  struct NewName {
    int IDCatalogo;
    QString name;
  };

  bool ApplyRename();
  void Rename(const NewName& typed);

  QListWidget& list_;
  Recordset& rsCataloghi_;
  const Connection& connection_;
  QWidget& owner_;
  WidgetRenameDelegate* rename_;
  std::vector<int> arrIDCataloghi;
  std::optional<NewName> newName_;
  bool reloadWaits_ = false;
};

}  // namespace vorlina
