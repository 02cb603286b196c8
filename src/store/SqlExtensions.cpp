#include <sqlite3.h>

#include <QCollator>
#include <QStringView>
#include <algorithm>
#include <cstring>
#include <memory>

#include "store/Ranks.h"
#include "store/Sqlite.h"

namespace vorlina {
namespace {

unsigned char FoldAscii(unsigned char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<unsigned char>(c + 32) : c;
}

QString Text(const void* bytes, int size) { return QString::fromUtf8(static_cast<const char*>(bytes), size); }

// Compares by case folding. Texts that are ASCII up to their first difference, which is nearly all of them,
// are never converted; the rest is folded from that place on, so that both ways give one order.
int CompareText(void*, int sizeA, const void* a, int sizeB, const void* b) {
  const auto* bytesA = static_cast<const unsigned char*>(a);
  const auto* bytesB = static_cast<const unsigned char*>(b);
  const int shorter = std::min(sizeA, sizeB);
  int i = 0;
  for (; i < shorter; ++i) {
    if ((bytesA[i] | bytesB[i]) >= 0x80) break;
    const int difference = int(FoldAscii(bytesA[i])) - int(FoldAscii(bytesB[i]));
    if (difference != 0) return difference;
  }
  if (i == sizeA || i == sizeB) return sizeA - sizeB;
  const QString restA = Text(bytesA + i, sizeA - i).toCaseFolded();
  const QString restB = Text(bytesB + i, sizeB - i).toCaseFolded();
  return restA.compare(restB);
}

int CompareByLocale(void* collator, int sizeA, const void* a, int sizeB, const void* b) {
  return static_cast<const QCollator*>(collator)->compare(Text(a, sizeA), Text(b, sizeB));
}

QString ArgumentText(sqlite3_value* value) {
  return Text(sqlite3_value_text(value), sqlite3_value_bytes(value));
}

void ResultText(sqlite3_context* context, const QString& text) {
  const QByteArray bytes = text.toUtf8();
  sqlite3_result_text(context, bytes.constData(), int(bytes.size()), SQLITE_TRANSIENT);
}

bool AnyNull(int count, sqlite3_value** arguments) {
  return std::any_of(arguments, arguments + count,
                     [](sqlite3_value* v) { return sqlite3_value_type(v) == SQLITE_NULL; });
}

// MID(text, start) and MID(text, start, length), counted from 1.
void Mid(sqlite3_context* context, int count, sqlite3_value** arguments) {
  if (AnyNull(count, arguments)) return sqlite3_result_null(context);
  const int start = std::max(sqlite3_value_int(arguments[1]), 1);
  const qsizetype length = count > 2 ? std::max(sqlite3_value_int(arguments[2]), 0) : -1;
  ResultText(context, ArgumentText(arguments[0]).mid(start - 1, length));
}

void Len(sqlite3_context* context, int count, sqlite3_value** arguments) {
  if (AnyNull(count, arguments)) return sqlite3_result_null(context);
  sqlite3_result_int64(context, ArgumentText(arguments[0]).size());
}

// "%" stands for any run of characters, "_" for one; the escape character, where one is given, makes them
// plain.
bool Matches(QStringView pattern, QStringView text, QChar escape) {
  qsizetype p = 0;
  qsizetype t = 0;
  qsizetype starPattern = -1;
  qsizetype starText = 0;
  while (t < text.size()) {
    if (p < pattern.size() && pattern[p] == u'%' && escape != u'%') {
      starPattern = ++p;
      starText = t;
      continue;
    }
    const bool escaped = p + 1 < pattern.size() && !escape.isNull() && pattern[p] == escape;
    const qsizetype at = escaped ? p + 1 : p;
    if (at < pattern.size() && (pattern[at] == text[t] || (!escaped && pattern[at] == u'_'))) {
      p = at + 1;
      ++t;
      continue;
    }
    if (starPattern < 0) return false;
    p = starPattern;
    t = ++starText;
  }
  while (p < pattern.size() && pattern[p] == u'%') ++p;
  return p == pattern.size();
}

// LIKE calls like(pattern, text) or like(pattern, text, escape).
void Like(sqlite3_context* context, int count, sqlite3_value** arguments) {
  if (AnyNull(count, arguments)) return sqlite3_result_null(context);
  const QString escape = count > 2 ? ArgumentText(arguments[2]) : QString();
  const bool matches =
      Matches(ArgumentText(arguments[0]).toCaseFolded(), ArgumentText(arguments[1]).toCaseFolded(),
              escape.isEmpty() ? QChar() : escape[0]);
  sqlite3_result_int(context, matches ? 1 : 0);
}

// VORLINA_RANK(ranks, number), where ranks is a RankList. Null for a number that has none.
void Rank(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (sqlite3_value_type(arguments[0]) != SQLITE_BLOB) return sqlite3_result_null(context);
  if (sqlite3_value_type(arguments[1]) == SQLITE_NULL) return sqlite3_result_null(context);
  const auto count = std::size_t(sqlite3_value_bytes(arguments[0])) / sizeof(RankPair);
  const auto* bytes = static_cast<const char*>(sqlite3_value_blob(arguments[0]));
  const qint64 number = sqlite3_value_int64(arguments[1]);
  const auto at = [&](std::size_t index) {
    RankPair pair;
    std::memcpy(&pair, bytes + index * sizeof(RankPair), sizeof(RankPair));
    return pair;
  };
  std::size_t low = 0;
  for (std::size_t high = count; low < high;) {
    const std::size_t middle = low + (high - low) / 2;
    if (at(middle).number < number)
      low = middle + 1;
    else
      high = middle;
  }
  if (low == count || at(low).number != number) return sqlite3_result_null(context);
  sqlite3_result_int64(context, at(low).rank);
}

void Check(SQLite::Database& database, int result) {
  if (result != SQLITE_OK) throw SQLite::Exception(database.getHandle(), result);
}

}  // namespace

void RegisterSqlExtensions(SQLite::Database& database) {
  sqlite3* handle = database.getHandle();
  Check(database,
        sqlite3_create_collation_v2(handle, "VORLINA_TEXT", SQLITE_UTF8, nullptr, CompareText, nullptr));
  auto collator = std::make_unique<QCollator>();
  collator->setCaseSensitivity(Qt::CaseInsensitive);
  collator->setNumericMode(true);
  Check(database, sqlite3_create_collation_v2(handle, "VORLINA_LOCALE", SQLITE_UTF8, collator.release(),
                                              CompareByLocale,
                                              [](void* object) { delete static_cast<QCollator*>(object); }));
  constexpr int Flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
  const auto add = [&](const char* name, int arguments,
                       void (*function)(sqlite3_context*, int, sqlite3_value**)) {
    Check(database, sqlite3_create_function_v2(handle, name, arguments, Flags, nullptr, function, nullptr,
                                               nullptr, nullptr));
  };
  add("MID", 2, Mid);
  add("MID", 3, Mid);
  add("LEN", 1, Len);
  add("VORLINA_RANK", 2, Rank);
  add("like", 2, Like);
  add("like", 3, Like);
}

}  // namespace vorlina
