#include "HelpPage.h"

#include <QRegularExpression>
#include <QSet>

namespace vorlina {
namespace {

const QSet<QString> Elements{
    u"html"_qs, u"head"_qs, u"title"_qs,  u"meta"_qs,  u"link"_qs,  u"body"_qs,  u"h1"_qs,        u"h2"_qs,
    u"h3"_qs,   u"p"_qs,    u"div"_qs,    u"span"_qs,  u"ul"_qs,    u"ol"_qs,    u"li"_qs,        u"dl"_qs,
    u"dt"_qs,   u"dd"_qs,   u"table"_qs,  u"thead"_qs, u"tbody"_qs, u"tr"_qs,    u"th"_qs,        u"td"_qs,
    u"a"_qs,    u"b"_qs,    u"strong"_qs, u"i"_qs,     u"em"_qs,    u"code"_qs,  u"pre"_qs,       u"kbd"_qs,
    u"br"_qs,   u"hr"_qs,   u"img"_qs,    u"sup"_qs,   u"sub"_qs,   u"small"_qs, u"blockquote"_qs};
const QSet<QString> Empty{u"meta"_qs, u"link"_qs, u"br"_qs, u"hr"_qs, u"img"_qs};

QString Plain(QString text) {
  const std::pair<QString, QString> characters[] = {
      {u"&lt;"_qs, u"<"_qs}, {u"&gt;"_qs, u">"_qs}, {u"&quot;"_qs, u"\""_qs}, {u"&amp;"_qs, u"&"_qs}};
  for (const auto& [written, meant] : characters) text.replace(written, meant);
  return text.simplified();
}

// Goes through the elements of a page one after the other.
class PageReader {
 public:
  HelpPage Read(const QString& html) {
    static const QRegularExpression comments(
        u"<!--.*?-->|<!DOCTYPE[^>]*>"_qs,
        QRegularExpression::DotMatchesEverythingOption | QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression element(u"<(/?)(\\w+)((?:\\s+[\\w-]+=\"[^\"<]*\")*)\\s*/?>|<"_qs);
    const QString text = QString(html).remove(comments);
    for (auto found = element.globalMatch(text); found.hasNext();) Take(found.next(), text);
    for (const QString& name : open_) Tell(u"<%1> is not closed"_qs.arg(name));
    if (page_.title.isEmpty()) Tell(u"there is no title"_qs);
    if (page_.keywords.isEmpty()) Tell(u"there are no keywords"_qs);
    return page_;
  }

 private:
  void Tell(const QString& fault) { page_.faults += fault; }

  void Take(const QRegularExpressionMatch& found, const QString& text) {
    const QString name = found.captured(2);
    const QString near = text.mid(found.capturedStart(), 40).simplified();
    if (name.isEmpty()) return Tell(u"this is no element: "_qs + near);
    if (!Elements.contains(name)) return Tell(u"the viewer does not know <%1>"_qs.arg(name));
    if (!found.captured(1).isEmpty()) return Close(name, found, text);
    if (!Empty.contains(name)) open_ += name;
    contentStart_ = found.capturedEnd();
    TakeAttributes(name, found.captured(3));
    page_.headings += name.startsWith(u'h') && name.size() == 2 && name != u"hr";
  }

  void Close(const QString& name, const QRegularExpressionMatch& found, const QString& text) {
    if (open_.isEmpty() || open_.last() != name)
      return Tell(u"</%1> closes <%2>"_qs.arg(name, open_.isEmpty() ? QString() : open_.last()));
    open_.removeLast();
    if (name == u"title") page_.title = Plain(text.mid(contentStart_, found.capturedStart() - contentStart_));
  }

  void TakeAttributes(const QString& element, const QString& written) {
    static const QRegularExpression attribute(u"([\\w-]+)=\"([^\"]*)\""_qs);
    QString alternative, name, content;
    for (auto found = attribute.globalMatch(written); found.hasNext();) {
      const QRegularExpressionMatch each = found.next();
      const QString key = each.captured(1), value = Plain(each.captured(2));
      if (key == u"id" || (element == u"a" && key == u"name")) AddAnchor(value);
      if (element == u"a" && key == u"href") page_.links += value;
      if (element == u"img" && key == u"src") page_.pictures += value;
      if (key == u"alt") alternative = value;
      if (key == u"name") name = value;
      if (key == u"content") content = value;
    }
    if (element == u"img" && alternative.isEmpty()) Tell(u"a picture has no words in its place (alt)"_qs);
    if (element == u"meta" && name == u"keywords") AddKeywords(content);
  }

  void AddAnchor(const QString& anchor) {
    if (page_.anchors.contains(anchor)) Tell(u"there are two anchors \"%1\""_qs.arg(anchor));
    page_.anchors += anchor;
  }

  void AddKeywords(const QString& list) {
    for (const QString& word : list.split(u';'))
      if (const QString keyword = word.trimmed(); !keyword.isEmpty()) page_.keywords += keyword;
  }

  HelpPage page_;
  QStringList open_;
  qsizetype contentStart_ = 0;
};

}  // namespace

HelpPage ReadHelpPage(const QString& html) { return PageReader().Read(html); }

}  // namespace vorlina
