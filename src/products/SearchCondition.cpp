#include "products/SearchCondition.h"

#include "base/Helpers.h"
#include "store/KeysetQuery.h"

namespace vorlina {
namespace {

const QStringList TextColumns{u"CodiceProdotto"_qs, u"Descrizione"_qs, u"Valore1"_qs, u"Valore2"_qs,
                              u"Valore3"_qs};

// "_" would stand for any character.
QString Like(const QString& text) {
  if (!text.contains(u'_')) return u" Like "_qs + QuoteText(text + u'%');
  QString escaped = text;
  escaped.replace(u'\\', u"\\\\"_qs).replace(u'_', u"\\_"_qs);
  return u" Like "_qs + QuoteText(escaped + u'%') + u" Escape '\\'"_qs;
}

}  // namespace

QString SearchCondition(const ProductValues& mask) {
  QString condition;
  const auto add = [&](const QString& column, const QString& test) {
    condition += u" And "_qs + column + test;
  };
  for (const QString& column : TextColumns)
    if (const QString text = NullToEmpty(mask.value(column)); !text.isEmpty()) add(column, Like(text));
  for (int filter = 1; filter <= 5; ++filter) {
    const QString column = u"IDFiltro"_qs + QString::number(filter);
    if (const qint64 value = mask.value(column).toLongLong(); value != 0)
      add(column, u"="_qs + QString::number(value));
  }
  return condition;
}

}  // namespace vorlina
