// The properties of a catalog as its window changes them: what is refused, what is asked, and what is written
// with them. All is answered before anything is written, and all is written in one transaction or nothing.
#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <functional>
#include <optional>
#include <vector>

#include "images/PictureRendering.h"
#include "store/ChangeLabel.h"

namespace vorlina {

class Connection;
class PictureChange;
class Recordset;

// What stands in the boxes, by the names of the columns.
using PropertyTexts = QMap<QString, QString>;

// Why a text is not stored.
struct PropertyRefusal {
  QString column;
  QString text;
};

class CatalogProperties {
 public:
  using Asking = std::function<bool(const QString& question)>;

  // The columns that can be changed, in the order in which they are looked at. A recordset takes the names in
  // any letter case.
  static const QStringList Columns;

  // The recordset stands on the row of the catalog. Both outlive it. Throws Error.
  CatalogProperties(Recordset& CatalogRs, Connection& connection);

  // A column as its box shows it.
  QString Shown(const QString& column) const;
  // What the boxes hold once they are filled: a text that differs was typed.
  void Begin(const PropertyTexts& boxes) { begun_ = boxes; }
  // Whether there is anything to store. A catalog with an escaped name is always taken to be changed.
  bool IsChanged(const PropertyTexts& boxes) const;

  // The file of the logo, whether there is one or not.
  QString Logo() const;
  // Has a picture file become the logo when all is saved; it is read now. Throws Error for one that cannot be
  // read or is no whole JPEG picture. Gives the picture's size.
  QSize ChooseLogo(const QString& file);
  // The file that was chosen; "" where none was.
  const QString& ChosenLogo() const { return logoFile_; }
  void ForgetLogo();

  // Gets ready what is to be stored: goes through the columns, and asks about each filter that was emptied.
  // One that stays keeps its name and its values. Throws Error, where the catalog is gone for instance.
  std::optional<PropertyRefusal> Prepare(const PropertyTexts& boxes, const Asking& ask);
  // The columns that somebody else has changed since they were shown, and that would be written over.
  const QStringList& WrittenOver() const { return writtenOver_; }
  // Whether values or filters are to get other names, or none.
  bool ChangesNames(const PropertyTexts& boxes) const;
  // Stores what was got ready. Throws Error: nothing is stored then. Where the logo alone could not take its
  // place at the end it stays chosen, the row tells of the former one, and why is given; "" otherwise.
  QString Save();

 private:
  bool IsTyped(const QString& column) const;
  void Empty(const QString& column, const Asking& ask);
  void Set(const QString& column, const QVariant& value);
  ChangeLabel Label() const;
  void Keep();
  void TakeLogo(PictureChange& pictures) const;
  void GiveFormerLogoBack();
  void RemoveFilter(QChar number) const;

  Recordset& catalog_;
  Connection& connection_;
  int IDCatalogo_;
  QMap<QString, QVariant> shown_;  // the columns as they were read
  PropertyTexts begun_;
  PropertyTexts typed_;  // of Prepare
  QString removed_;      // the numbers of filters
  QStringList writtenOver_;
  QMap<QString, QVariant> formerLogo_;  // of Prepare
  QString logoFile_;
  PreparedPicture logo_;
};

}  // namespace vorlina
