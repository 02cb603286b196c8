#include "Contact.h"

#include <QRegularExpression>
#include <QUrl>

#include "PlainText.h"
#include "Publishing.h"

namespace vlhtml {
namespace {

constexpr qsizetype FewestDigits = 5;
constexpr qsizetype MostDigits = 15;  // of any number in the world

// Whether a number ends where a slash, a comma or a word stands behind it, rather than that only its prefix
// does.
bool IsWhole(const QString& digits, const QString& more) {
  return digits.size() >= 9 || (digits.size() >= 6 && (more.startsWith(u'0') || more.isEmpty()));
}

}  // namespace

std::string SafeUrl(const std::string& address) {
  QString text = QString::fromStdString(address).trimmed();
  static const QRegularExpression bareHost(
      QStringLiteral(
          "\\A[\\p{L}\\p{N}_-]+(\\.[\\p{L}\\p{N}_-]+)*\\.\\p{L}[\\p{L}\\p{N}-]+\\.?(:[0-9]+)?([/?#]|\\z)"),
      QRegularExpression::UseUnicodePropertiesOption);
  if (bareHost.match(text).hasMatch()) text.prepend(u"https://");
  const QUrl url(text, QUrl::StrictMode);
  const bool web = url.scheme() == u"http" || url.scheme() == u"https";
  return url.isValid() && web && !url.host().isEmpty() ? url.toEncoded().toStdString() : std::string();
}

std::string SafeMail(const std::string& address) {
  static const QRegularExpression between(QStringLiteral("[;,\\s]+"));
  static const QRegularExpression form(
      QStringLiteral("\\A[A-Za-z0-9._+'-]+@[A-Za-z0-9-]+(\\.[A-Za-z0-9-]+)+\\z"));
  const QStringList all = QString::fromStdString(address).split(between, Qt::SkipEmptyParts);
  const QString first = all.value(0);
  const qsizetype host = first.lastIndexOf(u'@') + 1;
  // Mail programs know a domain with umlauts by its other name alone.
  const QString safe = first.left(host) + QString::fromLatin1(QUrl::toAce(first.mid(host)));
  return form.match(safe).hasMatch() ? safe.toStdString() : std::string();
}

std::string Dialled(const std::string& number) {
  static const QRegularExpression innerZero(QStringLiteral("\\A([^0-9]*(?:\\+|00) *(?!39)[0-9]+ *)\\(0\\)"));
  static const QRegularExpression between(QStringLiteral("\\s-\\s|[^\\s0-9+()._-]+"));
  // What is in brackets is dialled at home alone, but in Italy.
  const QString text = QString::fromStdString(number).replace(innerZero, QStringLiteral("\\1"));
  QString digits;
  for (const QString& part : text.split(between)) {
    QString more;
    for (const QChar c : part)
      if ((c >= u'0' && c <= u'9') || (c == u'+' && digits.isEmpty() && more.isEmpty())) more += c;
    if (IsWhole(digits, more)) break;
    digits += more;
  }
  const qsizetype count = digits.size() - digits.count(u'+');
  return count >= FewestDigits && count <= MostDigits ? digits.toStdString() : std::string();
}

std::string Unbroken(const std::string& number) {
  return QString::fromStdString(number)
      .simplified()
      .replace(u' ', QChar(0xA0))
      .replace(u'-', QChar(0x2011))
      .toStdString();
}

std::string MailLink(const std::string& address, const std::string& subject) {
  const QByteArray encoded = QUrl::toPercentEncoding(OneLine(QString::fromStdString(subject)));
  return "mailto:" + address + "?subject=" + encoded.toStdString();
}

std::string ShownAddress(const std::string& url) {
  QString shown = QString::fromStdString(url);
  shown.remove(0, shown.indexOf(u"://") < 0 ? 0 : shown.indexOf(u"://") + 3);
  while (shown.endsWith(u'/')) shown.chop(1);
  return shown.toStdString();
}

}  // namespace vlhtml
