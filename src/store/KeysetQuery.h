// Which rows a recordset shows, with the pieces of the SELECT apart, so that keys and rows can be asked for
// alone.
#pragma once

#include <QString>
#include <QVariantList>

namespace vorlina {

struct KeysetQuery {
  QString columns = u"*"_qs;  // as behind SELECT
  QString table = {};         // one table, under its own name
  QString where = {};         // a condition, "?" for each value; empty for every row
  QString order = {};         // as behind ORDER BY; empty for whatever order the database finds
  QVariantList values = {};
};

// A name in double quotes, for tables, columns and aliases.
inline QString QuoteName(const QString& name) {
  QString quoted = name;
  return u'"' + quoted.replace(u'"', u"\"\""_qs) + u'"';
}

// A text as SQL text, for a condition that is kept as text. It would end at a character of code 0, which no
// keyboard has.
inline QString QuoteText(const QString& text) {
  QString quoted = text;
  return u'\'' + quoted.remove(QChar(u'\0')).replace(u'\'', u"''"_qs) + u'\'';
}

}  // namespace vorlina
