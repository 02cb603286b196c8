#include "PublishedNames.h"

#include <QCryptographicHash>

#include "PlainText.h"

namespace publishing {
namespace {

constexpr qsizetype LongestSlug = 34;

// Lower-case ASCII letters, digits and single hyphens.
QString Slug(const QString& text) {
  QString slug;
  for (const QChar c : PlainLetters(text)) {
    if (c.unicode() < 128 && c.isLetterOrNumber()) {
      slug += c;
    } else if (!slug.isEmpty() && !slug.endsWith(u'-')) {
      slug += u'-';
    }
    if (slug.size() == LongestSlug) break;
  }
  while (slug.endsWith(u'-')) slug.chop(1);
  return slug;
}

QString Digits(const QString& text) {
  return QString::fromLatin1(
      QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Sha1).toHex().left(8));
}

}  // namespace

QString PublishedNames::NameOf(const QString& prefix, const QString& text) {
  const QString key = prefix + u'\n' + text;
  if (const auto known = given_.constFind(key); known != given_.constEnd()) return *known;
  const QString slug = Slug(text);
  QString name = prefix + slug;
  if (slug.isEmpty() || used_.contains(name))
    name += (slug.isEmpty() ? QString() : QStringLiteral("-")) + Digits(text);
  const QString wanted = name;
  for (int i = 2; used_.contains(name); ++i) name = wanted + u'-' + QString::number(i);
  used_.insert(name);
  given_.insert(key, name);
  return name;
}

}  // namespace publishing
