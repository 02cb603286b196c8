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

// What the tags of a page see, the innermost last. The library's own takes a name such as "L.home" apart by a
// stream, which takes longer than the rest of a page.
class Context : public kainjow::mustache::basic_context<std::string> {
 public:
  void push(const Data* data) override { seen_.push_back(data); }
  void pop() override { seen_.pop_back(); }
  const Data* get(const std::string& name) const override {
    if (name == ".") return seen_.back();
    for (auto data = seen_.rbegin(); data != seen_.rend(); ++data)
      if (const Data* found = Find(*data, name); found != nullptr) return found;
    return nullptr;
  }
  // A template has its parts in it.
  const Data* get_partial(const std::string&) const override { return nullptr; }

 private:
  static const Data* Find(const Data* data, const std::string& name) {
    const std::size_t dot = name.find('.');
    if (dot == std::string::npos) return data->get(name);
    const Data* group = data->get(name.substr(0, dot));
    return group == nullptr ? nullptr : Find(group, name.substr(dot + 1));
  }

  std::vector<const Data*> seen_;
};

// Takes a page in line by line.
struct Text {
  std::string all;
  Text& operator<<(const std::string& piece) {
    all += piece;
    return *this;
  }
};

// Few texts have anything to escape.
std::string Escaped(const std::string& text) {
  const auto isMarkup = [](char c) { return c == '&' || c == '<' || c == '>' || c == '"' || c == '\''; };
  return std::any_of(text.begin(), text.end(), isMarkup) ? kainjow::mustache::html_escape(text) : text;
}

}  // namespace

Skin::Skin(const QString& folder, const SkinKind& kind, bool italian)
    : folder_(folder), kind_(kind), italian_(italian) {
  QStringList needed = kind_.files;
  for (const QString& page : kind_.pages) needed += page + TemplateSuffix;
  for (const QString& name : needed)
    if (!QFileInfo(folder + u'/' + name).isFile()) RefuseMissing(name);
  for (const QString& page : kind_.pages) pages_.push_back(Load(page));
  for (const QString& page : kind_.moreKinds)
    pages_.push_back(QFileInfo::exists(folder + u'/' + page + TemplateSuffix) ? Load(page) : Parsed());
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
  parsed.text->set_custom_escape(Escaped);
  return parsed;
}

std::string Skin::Render(std::size_t page, const Data& site, const Data& data) {
  Context context;
  context.push(&site);
  context.push(&data);
  Text text;
  pages_[page].text->render(context, text);
  return std::move(text.all);
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
