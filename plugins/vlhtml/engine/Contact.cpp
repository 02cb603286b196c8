#include "Contact.h"

#include <QUrl>
#include <algorithm>

namespace vlhtml {

std::string SafeUrl(const std::string& address) {
  QString text = QString::fromStdString(address).trimmed();
  if (!text.contains(u"://") && text.startsWith(u"www.", Qt::CaseInsensitive)) text.prepend(u"https://");
  const QUrl url(text, QUrl::StrictMode);
  const bool web = url.scheme() == u"http" || url.scheme() == u"https";
  return url.isValid() && web && !url.host().isEmpty() ? url.toEncoded().toStdString() : std::string();
}

std::string SafeMail(const std::string& address) {
  const QString text = QString::fromStdString(address).trimmed();
  const auto allowed = [](QChar c) {
    return c.unicode() < 128 && (c.isLetterOrNumber() || QStringView(u"@._+-").contains(c));
  };
  return text.count(u'@') == 1 && std::all_of(text.begin(), text.end(), allowed) ? text.toStdString()
                                                                                 : std::string();
}

std::string Dialled(const std::string& number) {
  QString digits;
  for (const QChar c : QString::fromStdString(number))
    if ((c >= u'0' && c <= u'9') || (c == u'+' && digits.isEmpty())) digits += c;
  return digits.size() >= 5 ? digits.toStdString() : std::string();
}

std::string Unbroken(const std::string& number) {
  return QString::fromStdString(number)
      .simplified()
      .replace(u' ', QChar(0xA0))
      .replace(u'-', QChar(0x2011))
      .toStdString();
}

std::string MailLink(const std::string& address, const std::string& subject) {
  const QByteArray encoded = QUrl::toPercentEncoding(QString::fromStdString(subject).simplified());
  return "mailto:" + address + "?subject=" + encoded.toStdString();
}

std::string ShownAddress(const std::string& url) {
  QString shown = QString::fromStdString(url);
  shown.remove(0, shown.indexOf(u"://") < 0 ? 0 : shown.indexOf(u"://") + 3);
  while (shown.endsWith(u'/')) shown.chop(1);
  return shown.toStdString();
}

}  // namespace vlhtml
