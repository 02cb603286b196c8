#include "Words.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <functional>
#include <stdexcept>
#include <vector>

#include "PublishError.h"
#include "Template.h"

namespace publishing {
namespace {

constexpr qint64 LargestFile = 1 << 20;
const QString OfSkin = QStringLiteral("words/");

using Refuse = std::function<void(int line, const QString& italian, const QString& english)>;

// The texts of a file; where it is not as it must be, refuse throws.
QJsonObject Read(QFile& file, const Refuse& refuse) {
  if (!file.open(QIODevice::ReadOnly) || file.size() > LargestFile)
    refuse(0, QStringLiteral("non può essere letto"), QStringLiteral("it cannot be read"));
  const QByteArray text = file.readAll();
  QJsonParseError error;
  const QJsonDocument document = QJsonDocument::fromJson(text, &error);
  if (!document.isObject())
    refuse(int(text.left(error.error == QJsonParseError::NoError ? 0 : error.offset).count('\n')) + 1,
           QStringLiteral("non è scritto come {\"nome\": \"testo\", …}"),
           QStringLiteral("it is not written as {\"name\": \"text\", …}"));
  QJsonObject words = document.object();
  for (auto word = words.constBegin(); word != words.constEnd(); ++word)
    if (!word.value().isString() || word.key().isEmpty() || word.key().contains(u'.'))
      refuse(0, QStringLiteral("\"%1\" non è un nome senza punti con un testo").arg(word.key().left(60)),
             QStringLiteral("\"%1\" is no name without points that has a text").arg(word.key().left(60)));
  return words;
}

QJsonObject Delivered(const QString& folder, const QString& language, bool italian) {
  QFile file(folder + u'/' + language + QStringLiteral(".json"));
  return Read(file, [&](int, const QString&, const QString&) {
    throw About(file.fileName(), italian,
                QStringLiteral("Il file %1 manca o è danneggiato. Installare di nuovo il programma."),
                QStringLiteral("The file %1 is missing or damaged. Install the program again."));
  });
}

QJsonObject OfTheSkin(const QString& folder, const QString& language, bool italian) {
  const QString name = OfSkin + language + QStringLiteral(".json");
  QFile file(folder + u'/' + name);
  if (!file.exists()) return {};
  return Read(file, [&](int line, const QString& inItalian, const QString& inEnglish) {
    RefuseSkin(italian, name, line, inItalian, inEnglish);
  });
}

// Texts that are put in are not looked through for placeholders.
std::string Filled(std::string_view text,
                   const std::vector<std::pair<std::string_view, std::string>>& values) {
  std::string filled;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t open = std::min(text.find('{', at), text.size());
    filled.append(text.substr(at, open - at));
    const std::size_t close = text.find('}', open);
    if (close == std::string_view::npos) return filled.append(text.substr(open));
    const std::string_view name = text.substr(open + 1, close - open - 1);
    const auto value =
        std::find_if(values.begin(), values.end(), [&](const auto& one) { return one.first == name; });
    filled.append(value == values.end() ? text.substr(open, close + 1 - open)
                                        : std::string_view(value->second));
    at = close + 1;
  }
  return filled;
}

}  // namespace

Words::Words(const QString& language, const QString& delivered, const QString& skin, bool italian)
    : language_(language.toStdString()), locale_(language) {
  const auto take = [&](const QJsonObject& words, bool replace) {
    for (auto word = words.begin(); word != words.end(); ++word) {
      const auto [at, isNew] = words_.try_emplace(word.key().toStdString());
      if (isNew || replace) at->second = word.value().toString().toStdString();
    }
  };
  take(Delivered(delivered, language, italian), true);
  take(OfTheSkin(skin, language, italian), true);
  take(OfTheSkin(skin, QStringLiteral("en"), italian), false);
}

const std::string& Words::Text(std::string_view key) const {
  const auto found = words_.find(key);
  if (found == words_.end()) throw std::logic_error("no word \"" + std::string(key) + '"');
  return found->second;
}

std::string Words::Text(std::string_view key, Values values) const { return Filled(Text(key), values); }

std::string Words::Counted(const std::string& key, int n, Values values) const {
  const bool one = n == 1 || (n == 0 && language_ == "fr");
  std::vector<std::pair<std::string_view, std::string>> all(values);
  all.emplace_back("n", Number(n));
  return Filled(Text(key + (one ? "One" : "Many")), all);
}

std::string Words::Number(int n) const { return locale_.toString(n).toStdString(); }

void Words::Tell(Fields& fields) const {
  for (const auto& [key, text] : words_) fields.Text(key.c_str(), text);
}

}  // namespace publishing
