#include "PageMark.h"

#include <string_view>

#include "Fingerprint.h"

namespace publishing {
namespace {

const QByteArray Head = "<!-- vorlina-site ";
const QByteArray Foot = " -->\n";

QByteArray Digits(std::string_view page) {
  return QByteArray::number(qulonglong(Fingerprint(page)), 16).rightJustified(16, '0');
}

// No name ends the comment.
QByteArray Encoded(const QString& name) { return name.toUtf8().toPercentEncoding("/").replace("--", "-%2D"); }

}  // namespace

std::string PageMark::ToText(const std::string& page) const {
  QByteArray text = Head + site + (profile.isEmpty() ? "" : ".") + profile + ' ' + Digits(page);
  for (const QString& file : files) text += ' ' + Encoded(file);
  text += Foot;
  return text.toStdString();
}

std::optional<PageMark> PageMark::Read(const QByteArray& page) {
  const qsizetype at = page.lastIndexOf(Head);
  if (at < 0 || !page.endsWith(Foot)) return {};
  const qsizetype start = at + Head.size();
  const QList<QByteArray> parts = page.mid(start, page.size() - Foot.size() - start).split(' ');
  if (parts.size() < 2 || parts[1] != Digits({page.constData(), std::size_t(at)})) return {};
  const QList<QByteArray> whose = parts[0].split('.');
  PageMark mark{whose[0], whose.value(1), {}};
  for (const QByteArray& name : parts.mid(2))
    mark.files += QString::fromUtf8(QByteArray::fromPercentEncoding(name));
  return mark;
}

}  // namespace publishing
