#include "Skin.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>

namespace publishing {
namespace {

constexpr qsizetype LargestTemplate = 1 << 20;
const QString TemplateSuffix = QStringLiteral(".mustache");

QByteArray Sha1(QByteArrayView bytes) {
  return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).left(16);
}

}  // namespace

Skin::Skin(const QString& folder, const SkinKind& kind, bool italian)
    : folder_(folder), kind_(kind), italian_(italian) {
  QStringList needed = kind_.files;
  for (const QString& page : kind_.pages) needed += page + TemplateSuffix;
  for (const QString& name : needed)
    if (!QFileInfo(folder + u'/' + name).isFile()) RefuseMissing(name);
  for (const QString& page : kind_.pages) Load(page + TemplateSuffix);
  for (const QString& page : kind_.moreKinds)
    if (QFileInfo::exists(folder + u'/' + page + TemplateSuffix))
      Load(page + TemplateSuffix);
    else
      pages_.emplace_back();
}

void Skin::RefuseMissing(const QString& name) const {
  RefuseSkin(italian_, name, 0, QStringLiteral("manca. Copiarlo dalla skin \"Standard\""),
             QStringLiteral("it is missing. Copy it from the skin \"Standard\""));
}

std::string Skin::Read(const QString& name) const {
  QFile file(folder_ + u'/' + name);
  if (!file.exists()) RefuseMissing(name);
  if (!file.open(QIODevice::ReadOnly))
    RefuseSkin(italian_, name, 0, QStringLiteral("non può essere letto"),
               QStringLiteral("it cannot be read"));
  if (file.size() > LargestTemplate)
    RefuseSkin(italian_, name, 0, QStringLiteral("è troppo grande"), QStringLiteral("it is too large"));
  return file.readAll().toStdString();
}

void Skin::Load(const QString& name) {
  const Template loaded = LoadTemplate(
      name, [this](const QString& part) { return Read(part); }, italian_);
  PageProgram program(loaded, names_, pages_.size());
  pages_.push_back({Sha1(QByteArray::fromStdString(VORLINA_VERSION "\n" + loaded.text)), std::move(program)});
}

void Skin::Write(std::size_t kind, const FieldTree& site, const FieldTree& page, std::string& out) const {
  try {
    pages_[kind].program.Write(site, page, out);
  } catch (const PageFault& fault) {
    if (fault.isListInItself)
      RefuseSkin(italian_, fault.file, fault.line, QStringLiteral("un elenco non può stare dentro sé stesso"),
                 QStringLiteral("a list cannot stand within itself"));
    RefuseSkin(italian_, fault.file, fault.line, QStringLiteral("la pagina sarebbe troppo grande"),
               QStringLiteral("the page would be too large"));
  }
}

std::vector<Skin::File> Skin::StaticFiles() const {
  QStringList names;
  QDirIterator entries(folder_, QDir::Files, QDirIterator::Subdirectories);
  while (entries.hasNext()) {
    const QString name = QDir(folder_).relativeFilePath(entries.next());
    if (!name.contains(u'/') && name.endsWith(TemplateSuffix)) continue;
    if (name.startsWith(QStringLiteral("words/"))) continue;  // they are in the pages
    CheckName(name);
    names += name;
  }
  names.sort();
  std::vector<File> files;
  for (const QString& name : names) files.push_back({name, HashOfFile(name)});
  return files;
}

QByteArray Skin::HashOfFile(const QString& name) const {
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
  const QRegularExpression taken(QStringLiteral("\\A(vorlina-.*|%1)\\z").arg(kind_.taken),
                                 QRegularExpression::CaseInsensitiveOption);
  if (!plain.match(name).hasMatch() || name.contains(QStringLiteral("..")))
    RefuseSkin(
        italian_, name, 0,
        QStringLiteral("il nome può avere solo lettere senza accenti, cifre, \".\", \"_\" e \"-\""),
        QStringLiteral("the name may have only letters without accents, digits, \".\", \"_\" and \"-\""));
  if (taken.match(name).hasMatch())
    RefuseSkin(italian_, name, 0, QStringLiteral("il sito usa già questo nome, sceglierne un altro"),
               QStringLiteral("the site itself uses this name, choose another one"));
}

}  // namespace publishing
