#include "Skin.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>

namespace vlhtml {
namespace {

constexpr qsizetype LargestTemplate = 1 << 20;
const QString TemplateSuffix = QStringLiteral(".mustache");

QByteArray Sha1(QByteArrayView bytes) {
  return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).left(16);
}

}  // namespace

QStringList Skin::NeededFiles() {
  return {QStringLiteral("home.mustache"),   QStringLiteral("index.mustache"),
          QStringLiteral("filter.mustache"), QStringLiteral("product.mustache"),
          QStringLiteral("header.mustache"), QStringLiteral("footer.mustache"),
          QStringLiteral("card.mustache"),   QStringLiteral("style.css")};
}

Skin::Skin(const QString& folder, bool italian) : folder_(folder), italian_(italian) {
  for (const QString& name : NeededFiles())
    if (!QFileInfo(folder + u'/' + name).isFile())
      RefuseSkin(italian_, name, 0, QStringLiteral("manca"), QStringLiteral("it is missing"));
  pages_ = {Load(QStringLiteral("home")), Load(QStringLiteral("index")), Load(QStringLiteral("filter")),
            Load(QStringLiteral("product"))};
}

std::string Skin::Read(const QString& name) const {
  QFile file(folder_ + u'/' + name);
  if (!file.open(QIODevice::ReadOnly))
    RefuseSkin(italian_, name, 0, QStringLiteral("non può essere letto"),
               QStringLiteral("it cannot be read"));
  if (file.size() > LargestTemplate)
    RefuseSkin(italian_, name, 0, QStringLiteral("è troppo grande"), QStringLiteral("it is too large"));
  return file.readAll().toStdString();
}

Skin::Parsed Skin::Load(const QString& name) const {
  const QString file = name + TemplateSuffix;
  Template loaded = LoadTemplate(
      file, [this](const QString& part) { return Read(part); }, italian_);
  Parsed parsed;
  parsed.page.hash = Sha1(QByteArray::fromStdString(VORLINA_VERSION "\n" + loaded.text));
  parsed.page.names = std::move(loaded.names);
  parsed.text = std::make_unique<kainjow::mustache::mustache>(loaded.text);
  if (const QString error = QString::fromStdString(parsed.text->error_message()); !error.isEmpty())
    RefuseSkin(italian_, file, 0, error, error);
  return parsed;
}

std::string Skin::Render(PageKind kind, const Data& site, const Data& data) {
  kainjow::mustache::context<std::string> context(&site);
  context.push(&data);
  return pages_[std::size_t(kind)].text->render(context);
}

std::vector<Skin::File> Skin::StaticFiles() const {
  QStringList names;
  QDirIterator entries(folder_, QDir::Files, QDirIterator::Subdirectories);
  while (entries.hasNext()) {
    const QString name = QDir(folder_).relativeFilePath(entries.next());
    if (!name.contains(u'/') && name.endsWith(TemplateSuffix)) continue;
    CheckName(name);
    names += name;
  }
  names.sort();
  std::vector<File> files;
  for (const QString& name : names) files.push_back({name, HashOf(name)});
  return files;
}

QByteArray Skin::HashOf(const QString& name) const {
  QFile file(folder_ + u'/' + name);
  QCryptographicHash hash(QCryptographicHash::Sha1);
  if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file))
    RefuseSkin(italian_, name, 0, QStringLiteral("non può essere letto"),
               QStringLiteral("it cannot be read"));
  return hash.result().left(16);
}

void Skin::CheckName(const QString& name) const {
  static const QRegularExpression plain(
      QStringLiteral("\\A[A-Za-z0-9_-][A-Za-z0-9._-]*(/[A-Za-z0-9_-][A-Za-z0-9._-]*)*\\z"));
  static const QRegularExpression ofSite(
      QStringLiteral("\\A(images(/.*)?|vorlina-.*|(index|products|products-\\d+|[pf]\\d?-.*)\\.html)\\z"),
      QRegularExpression::CaseInsensitiveOption);
  if (!plain.match(name).hasMatch() || name.contains(QStringLiteral("..")))
    RefuseSkin(
        italian_, name, 0,
        QStringLiteral("il nome può avere solo lettere senza accenti, cifre, \".\", \"_\" e \"-\""),
        QStringLiteral("the name may have only letters without accents, digits, \".\", \"_\" and \"-\""));
  if (ofSite.match(name).hasMatch())
    RefuseSkin(italian_, name, 0, QStringLiteral("il sito usa già questo nome, sceglierne un altro"),
               QStringLiteral("the site itself uses this name, choose another one"));
}

}  // namespace vlhtml
