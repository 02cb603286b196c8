#include "Skin.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <stdexcept>

namespace vlhtml {
namespace {

constexpr qsizetype LargestTemplate = 1 << 20;

[[noreturn]] void Refuse(bool italian, const QString& file, const QString& inItalian,
                         const QString& inEnglish) {
  const QString text = italian ? QStringLiteral("Skin, file %1: ").arg(file) + inItalian
                               : QStringLiteral("Skin, file %1: ").arg(file) + inEnglish;
  throw std::runtime_error(text.toStdString());
}

// "{{> name}}" is replaced by that template's text while loading, so that a partial is not parsed for every
// page.
const std::string PartialOpen = "{{>";

}  // namespace

QStringList Skin::NeededFiles() {
  return {QStringLiteral("home.mustache"),   QStringLiteral("index.mustache"),
          QStringLiteral("filter.mustache"), QStringLiteral("product.mustache"),
          QStringLiteral("header.mustache"), QStringLiteral("footer.mustache"),
          QStringLiteral("card.mustache"),   QStringLiteral("style.css")};
}

Skin::Skin(const QString& folder, bool italian) : folder_(folder), italian_(italian) {
  home_ = Load(QStringLiteral("home"));
  index_ = Load(QStringLiteral("index"));
  filter_ = Load(QStringLiteral("filter"));
  product_ = Load(QStringLiteral("product"));
  files_ += QStringLiteral("style.css");
  const QStringList assets = QDir(folder + QStringLiteral("/assets")).entryList(QDir::Files, QDir::Name);
  for (const QString& name : assets) files_ += QStringLiteral("assets/") + name;
  QCryptographicHash hash(QCryptographicHash::Sha1);
  for (const QString& name : QDir(folder).entryList(QDir::Files, QDir::Name)) {
    QFile file(folder + u'/' + name);
    if (!file.open(QIODevice::ReadOnly))
      Refuse(italian_, name, QStringLiteral("non può essere letto"), QStringLiteral("it cannot be read"));
    hash.addData(name.toUtf8());
    hash.addData(&file);
  }
  hash_ = hash.result();
}

std::string Skin::Read(const QString& name) {
  QFile file(folder_ + u'/' + name);
  if (!file.open(QIODevice::ReadOnly))
    Refuse(italian_, name, QStringLiteral("manca"), QStringLiteral("it is missing"));
  if (file.size() > LargestTemplate)
    Refuse(italian_, name, QStringLiteral("è troppo grande"), QStringLiteral("it is too large"));
  std::string text = file.readAll().toStdString();
  for (const char* raw : {"{{{", "{{&", "{{ &", "{{="})
    if (text.find(raw) != std::string::npos)
      Refuse(italian_, name,
             QStringLiteral("\"%1\" non è ammesso, perché i testi dei prodotti devono restare testi")
                 .arg(QString::fromLatin1(raw)),
             QStringLiteral("\"%1\" is not allowed, since the texts of products must stay texts")
                 .arg(QString::fromLatin1(raw)));
  return text;
}

std::unique_ptr<Skin::Template> Skin::Load(const QString& name) {
  const QString file = name + QStringLiteral(".mustache");
  std::string text = Read(file);
  for (std::size_t at = text.find(PartialOpen); at != std::string::npos; at = text.find(PartialOpen)) {
    const std::size_t end = text.find("}}", at);
    if (end == std::string::npos)
      Refuse(italian_, file, QStringLiteral("\"}}\" manca"), QStringLiteral("\"}}\" is missing"));
    const QString partial = QString::fromStdString(text.substr(at + 3, end - at - 3)).trimmed();
    if (partial != u"header" && partial != u"footer" && partial != u"card")
      Refuse(italian_, file, QStringLiteral("la parte \"%1\" non esiste").arg(partial),
             QStringLiteral("there is no partial \"%1\"").arg(partial));
    std::string part = Read(partial + QStringLiteral(".mustache"));
    if (part.ends_with('\n')) part.pop_back();
    if (part.find(PartialOpen) != std::string::npos)
      Refuse(italian_, partial, QStringLiteral("una parte non può contenerne un'altra"),
             QStringLiteral("a partial cannot hold another one"));
    text.replace(at, end + 2 - at, part);
  }
  auto parsed = std::make_unique<Template>(text);
  if (!parsed->is_valid())
    Refuse(italian_, file, QString::fromStdString(parsed->error_message()),
           QString::fromStdString(parsed->error_message()));
  return parsed;
}

std::string Skin::Render(const char* page, const Data& site, const Data& data) {
  const std::string_view name = page;
  Template& which = name == "home"     ? *home_
                    : name == "index"  ? *index_
                    : name == "filter" ? *filter_
                                       : *product_;
  kainjow::mustache::context<std::string> context(&site);
  context.push(&data);
  return which.render(context);
}

}  // namespace vlhtml
