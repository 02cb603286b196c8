#include "store/SqlFunctions.h"

#include <sqlite3.h>

#include <QCollator>
#include <QLocale>
#include <QString>

#include "store/StoreError.h"
#include "store/TextCompare.h"

namespace vorlina {
namespace {

std::string_view View(int size, const void* text) {
  return {static_cast<const char*>(text), std::size_t(size)};
}

std::string_view ArgumentText(sqlite3_value* value) {
  const void* text = sqlite3_value_text(value);
  return text == nullptr ? std::string_view() : View(sqlite3_value_bytes(value), text);
}

QString ArgumentString(sqlite3_value* value) {
  const std::string_view text = ArgumentText(value);
  return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

void ResultString(sqlite3_context* context, const QString& text) {
  const QByteArray bytes = text.toUtf8();
  sqlite3_result_text64(context, bytes.constData(), sqlite3_uint64(bytes.size()), SQLITE_TRANSIENT,
                        SQLITE_UTF8);
}

bool AnyNull(int count, sqlite3_value** arguments) {
  for (int i = 0; i < count; ++i)
    if (sqlite3_value_type(arguments[i]) == SQLITE_NULL) return true;
  return false;
}

int CompareText(void*, int firstSize, const void* first, int secondSize, const void* second) {
  return CompareFolded(View(firstSize, first), View(secondSize, second));
}

int CompareByLocale(void* collator, int firstSize, const void* first, int secondSize, const void* second) {
  return static_cast<QCollator*>(collator)->compare(
      QString::fromUtf8(static_cast<const char*>(first), firstSize),
      QString::fromUtf8(static_cast<const char*>(second), secondSize));
}

// LEN(text): characters, Null for Null.
void Len(sqlite3_context* context, int count, sqlite3_value** arguments) {
  if (!AnyNull(count, arguments)) sqlite3_result_int64(context, ArgumentString(arguments[0]).size());
}

// MID(text, start [, length]): counted from 1.
void Mid(sqlite3_context* context, int count, sqlite3_value** arguments) {
  if (AnyNull(count, arguments)) return;
  const sqlite3_int64 start = sqlite3_value_int64(arguments[1]);
  const sqlite3_int64 length = count > 2 ? sqlite3_value_int64(arguments[2]) : -1;
  if (start < 1 || (count > 2 && length < 0)) {
    sqlite3_result_error(context, "MID: start or length out of range", -1);
    return;
  }
  ResultString(context, ArgumentString(arguments[0]).mid(start - 1, length));
}

// X LIKE Y calls like(Y, X).
void Like(sqlite3_context* context, int count, sqlite3_value** arguments) {
  if (AnyNull(count, arguments)) return;
  char32_t escape = 0;
  if (count > 2) {
    const QList<uint> characters = ArgumentString(arguments[2]).toUcs4();
    if (characters.size() != 1) {
      sqlite3_result_error(context, "ESCAPE expression must be a single character", -1);
      return;
    }
    escape = QChar::toCaseFolded(char32_t(characters[0]));
  }
  sqlite3_result_int(context, MatchesLike(ArgumentText(arguments[0]), ArgumentText(arguments[1]), escape));
}

struct Function {
  const char* name;
  int arguments;
  void (*call)(sqlite3_context*, int, sqlite3_value**);
};

const Function Functions[] = {
    {"LEN", 1, Len}, {"MID", 2, Mid}, {"MID", 3, Mid}, {"like", 2, Like}, {"like", 3, Like}};

}  // namespace

void RegisterSqlFunctions(sqlite3* handle) {
  constexpr int Flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
  int result =
      sqlite3_create_collation_v2(handle, "VORLINA_TEXT", SQLITE_UTF8, nullptr, CompareText, nullptr);
  if (result == SQLITE_OK) {
    auto* collator = new QCollator(QLocale());
    collator->setCaseSensitivity(Qt::CaseInsensitive);
    const auto destroy = [](void* object) { delete static_cast<QCollator*>(object); };
    result = sqlite3_create_collation_v2(handle, "VORLINA_LOCALE", SQLITE_UTF8, collator, CompareByLocale,
                                         destroy);
    // Unlike the functions' one, this call leaves the object to the caller when it fails.
    if (result != SQLITE_OK) delete collator;
  }
  for (const Function& function : Functions)
    if (result == SQLITE_OK)
      result = sqlite3_create_function_v2(handle, function.name, function.arguments, Flags, nullptr,
                                          function.call, nullptr, nullptr, nullptr);
  if (result != SQLITE_OK) ThrowStoreError(handle);
}

}  // namespace vorlina
