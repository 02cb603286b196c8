#include "Template.h"

#include <QStringList>
#include <algorithm>
#include <set>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace publishing {
namespace {

// Parts of parts of parts can make much of little.
constexpr std::size_t LargestWhole = 4 << 20;
constexpr int MostParts = 10'000;
constexpr std::size_t DeepestNesting = 100;
// Those of all kinds of pages together still have numbers of their own.
constexpr std::size_t MostNames = 1'000;

// Blanks of any kind are left out, those that do not break a line too.
std::string Trimmed(const std::string& text) { return QString::fromStdString(text).trimmed().toStdString(); }

// A part's name is that of a file of the skin's own folder.
bool IsName(const QString& part) {
  return !part.isEmpty() && std::all_of(part.begin(), part.end(), [](QChar c) {
    return c.unicode() < 128 && (c.isLetterOrNumber() || c == u'-' || c == u'_');
  });
}

int LineEnds(const std::string& text, std::size_t begin, std::size_t end) {
  return int(std::count(text.begin() + std::ptrdiff_t(begin), text.begin() + std::ptrdiff_t(end), '\n'));
}

class Loader {
 public:
  Loader(const std::function<std::string(const QString&)>& read, bool italian)
      : read_(read), italian_(italian) {}

  Template Load(const QString& file) {
    whole_.file = file;
    Tag whole;
    whole.file = file;
    TakeIn(file, whole);
    CheckSections();
    CheckNames();
    return std::move(whole_);
  }

 private:
  // The tag is that which takes it in.
  void TakeIn(const QString& file, const Tag& taker) {
    std::string text = read_(file);
    // The line end behind a part's tag stands for the part's own last one.
    if (!taken_.isEmpty() && text.ends_with('\n')) text.pop_back();
    CheckSize(text.size(), taker);
    taken_ += file;
    const std::vector<Tag> tags = TagsIn(text, file);
    std::size_t at = 0;
    for (const Tag& tag : tags) {
      const std::size_t begin = whole_.text.size() + tag.begin - at;
      const bool isPart = tag.kind == '>';
      whole_.text.append(text, at, (isPart ? tag.begin : tag.end) - at);
      at = tag.end;
      if (isPart) {
        TakePart(tag);
      } else {
        whole_.tags.push_back(tag);
        whole_.tags.back().begin = begin;
        whole_.tags.back().end = whole_.text.size();
      }
    }
    whole_.text.append(text, at);
    taken_.removeLast();
  }

  void TakePart(const Tag& tag) {
    const QString part = QString::fromStdString(tag.name);
    if (!IsName(part))
      Refuse(tag, QStringLiteral("la parte \"%1\" non esiste").arg(part),
             QStringLiteral("there is no part \"%1\"").arg(part));
    if (taken_.contains(part + QStringLiteral(".mustache")))
      Refuse(tag, QStringLiteral("una parte non può contenere sé stessa"),
             QStringLiteral("a part cannot hold itself"));
    if (++parts_ > MostParts)
      Refuse(tag, QStringLiteral("la pagina prende troppe parti"),
             QStringLiteral("the page takes in too many parts"));
    if (taken_.size() > qsizetype(DeepestNesting)) RefuseDepth(tag);
    TakeIn(part + QStringLiteral(".mustache"), tag);
  }

  // What is read counts: it is more than what comes of it.
  void CheckSize(std::size_t more, const Tag& tag) {
    size_ += more;
    if (size_ > LargestWhole)
      Refuse(tag, QStringLiteral("la pagina sarebbe troppo grande"),
             QStringLiteral("the page would be too large"));
  }

  std::vector<Tag> TagsIn(const std::string& text, const QString& file) const {
    std::vector<Tag> tags;
    Tag tag;
    tag.file = file;
    for (std::size_t at = text.find("{{"); at != std::string::npos; at = text.find("{{", tag.end)) {
      tag.line += LineEnds(text, tag.end, at);
      tag.begin = at;
      const std::size_t end = text.find("}}", at + 2);
      if (end == std::string::npos)
        Refuse(tag, QStringLiteral("\"}}\" manca"), QStringLiteral("\"}}\" is missing"));
      tag.end = end + 2;
      Read(Trimmed(text.substr(at + 2, end - at - 2)), tag);
      tags.push_back(tag);
      tag.line += LineEnds(text, at, tag.end);
    }
    return tags;
  }

  void Read(const std::string& content, Tag& tag) const {
    const char first = content.empty() ? '\0' : content[0];
    if (first == '{' || first == '&' || first == '=')
      Refuse(tag,
             QStringLiteral("\"{{%1\" non è ammesso, perché i testi dei prodotti devono restare testi")
                 .arg(QLatin1Char(first)),
             QStringLiteral("\"{{%1\" is not allowed, since the texts of products must stay texts")
                 .arg(QLatin1Char(first)));
    const bool marked = first != '\0' && std::string_view("#^/>!").find(first) != std::string_view::npos;
    tag.kind = marked ? first : '\0';
    tag.name = marked ? Trimmed(content.substr(1)) : content;
  }

  void CheckSections() const {
    std::vector<const Tag*> open;
    for (const Tag& tag : whole_.tags) {
      if (tag.kind == '#' || tag.kind == '^') open.push_back(&tag);
      if (open.size() > DeepestNesting) RefuseDepth(tag);
      if (tag.kind != '/') continue;
      if (open.empty() || open.back()->name != tag.name)
        Refuse(tag, QStringLiteral("\"{{/%1}}\" non chiude nulla").arg(QString::fromStdString(tag.name)),
               QStringLiteral("\"{{/%1}}\" closes nothing").arg(QString::fromStdString(tag.name)));
      open.pop_back();
    }
    if (open.empty()) return;
    const QString section = QLatin1Char(open.back()->kind) + QString::fromStdString(open.back()->name);
    Refuse(*open.back(), QStringLiteral("\"{{%1}}\" non è chiuso").arg(section),
           QStringLiteral("\"{{%1}}\" is not closed").arg(section));
  }

  // "a.b" is two.
  void CheckNames() const {
    std::set<std::string_view> names;
    std::size_t count = 0;
    for (const Tag& tag : whole_.tags) {
      if (tag.kind == '/' || tag.kind == '!' || !names.insert(tag.name).second) continue;
      count += std::size_t(std::count(tag.name.begin(), tag.name.end(), '.')) + 1;
      if (count > MostNames)
        Refuse(tag, QStringLiteral("la pagina chiede troppi nomi"),
               QStringLiteral("the page asks for too many names"));
    }
  }

  [[noreturn]] void RefuseDepth(const Tag& tag) const {
    Refuse(tag, QStringLiteral("troppe sezioni o parti stanno una dentro l'altra"),
           QStringLiteral("too many sections or parts stand within each other"));
  }

  [[noreturn]] void Refuse(const Tag& tag, const QString& inItalian, const QString& inEnglish) const {
    RefuseSkin(italian_, tag.file, tag.line, inItalian, inEnglish);
  }

  const std::function<std::string(const QString&)>& read_;
  bool italian_;
  Template whole_;     // its tags are without those that took in a part
  QStringList taken_;  // the file that is being taken in, and those that hold it
  int parts_ = 0;
  std::size_t size_ = 0;  // of all that was taken in
};

}  // namespace

Template LoadTemplate(const QString& file, const std::function<std::string(const QString&)>& read,
                      bool italian) {
  return Loader(read, italian).Load(file);
}

void RefuseSkin(bool italian, const QString& file, int line, const QString& inItalian,
                const QString& inEnglish) {
  const QString where =
      line == 0 ? QString() : (italian ? QStringLiteral(", riga %1") : QStringLiteral(", line %1")).arg(line);
  const QString text =
      QStringLiteral("Skin, file %1%2: %3").arg(file, where, italian ? inItalian : inEnglish);
  throw std::runtime_error(text.toStdString());
}

}  // namespace publishing
