// A column of a grid, described by data.
#pragma once

#include <QIcon>
#include <QString>
#include <QVariant>
#include <Qt>

#include "grid/Lookup.h"

namespace vorlina {

enum class ColumnKind { Text, Number, Boolean, Lookup };

struct GridColumn {
  QString key = {};  // the recordset's name for it; of an unbound column any other name
  QString caption = {};
  QString toolTip = {};  // of the head; empty for the caption
  QIcon icon = {};       // beside the caption, or in its place
  ColumnKind kind = ColumnKind::Text;
  bool bound = true;
  bool visible = true;  // for the view; a hidden column has its values all the same
  bool readOnly = false;
  bool wordWrap = false;
  Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter;
  QVariant defaultValue = {};  // of a new row; QVariant() for the table's own
  Lookup lookup = {};
  int field = -1;  // its place in the recordset, where two columns there bear one name; -1 finds it by key
};

}  // namespace vorlina
