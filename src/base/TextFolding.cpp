#include "base/TextFolding.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace vorlina {
namespace {

// Characters below this, which are those of alphabets with letter case, are folded by a table.
constexpr char32_t TableSize = 0x2000;
constexpr std::size_t MostUnits = 3;
// Marks of this class and above stand over or under a letter.
constexpr int Accents = 200;

struct FoldedCharacter {
  std::array<char16_t, MostUnits> units;
  quint16 count;
};

bool IsAccent(char32_t character) { return QChar::combiningClass(character) >= Accents; }

// By way of the capitals, which tell letters that stand for several, such as a sharp s.
QString FoldedText(char32_t character) {
  const QString letters = QString::fromUcs4(&character, 1).normalized(QString::NormalizationForm_D);
  QString text = letters.toUpper().toCaseFolded().normalized(QString::NormalizationForm_D);
  text.removeIf([](QChar unit) { return IsAccent(unit.unicode()); });
  return text;
}

std::array<FoldedCharacter, TableSize> MakeTable() {
  std::array<FoldedCharacter, TableSize> table{};
  for (char32_t character = 0; character < TableSize; ++character) {
    const QString text = FoldedText(character);
    FoldedCharacter& folded = table[character];
    folded.count = quint16(std::min<std::size_t>(std::size_t(text.size()), MostUnits));
    for (quint16 i = 0; i < folded.count; ++i) folded.units[i] = text[i].unicode();
  }
  return table;
}

void AppendFolded(char32_t character, FoldedUnits& units) {
  static const std::array<FoldedCharacter, TableSize> table = MakeTable();
  if (character < TableSize) {
    const FoldedCharacter& folded = table[character];
    for (quint16 i = 0; i < folded.count; ++i) units.append(folded.units[i]);
    return;
  }
  const bool plain = QChar::decompositionTag(character) == QChar::NoDecomposition &&
                     QChar::toCaseFolded(character) == character && !IsAccent(character);
  if (plain && !QChar::requiresSurrogates(character)) return units.append(char16_t(character));
  for (const QChar unit : FoldedText(character)) units.append(unit.unicode());
}

// The character at a place of a text, which is moved behind it. What is no UTF-8 gives some character, and
// never takes one of ASCII with it.
char32_t NextCharacter(std::string_view utf8, std::size_t& at) {
  const auto first = static_cast<unsigned char>(utf8[at++]);
  if (first < 0xC0) return first;
  const int more = first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
  char32_t character = char32_t(first) & (0x3FU >> more);
  for (int i = 0; i < more && at < utf8.size() && (static_cast<unsigned char>(utf8[at]) & 0xC0U) == 0x80; ++i)
    character = (character << 6U) | (static_cast<unsigned char>(utf8[at++]) & 0x3FU);
  return character <= QChar::LastValidCodePoint ? character : char32_t(QChar::ReplacementCharacter);
}

bool IsAscii(std::string_view text) {
  constexpr quint64 HighBits = 0x8080808080808080U;
  std::size_t at = 0;
  for (; at + sizeof(quint64) <= text.size(); at += sizeof(quint64)) {
    quint64 eight = 0;
    std::memcpy(&eight, text.data() + at, sizeof eight);
    if ((eight & HighBits) != 0) return false;
  }
  return std::all_of(text.begin() + std::ptrdiff_t(at), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

constexpr std::array<char, 256> MakeAsciiTable() {
  std::array<char, 256> table{};
  for (std::size_t i = 0; i < table.size(); ++i) table[i] = char(i >= 'A' && i <= 'Z' ? i + ('a' - 'A') : i);
  return table;
}

constexpr std::array<char, 256> AsciiTable = MakeAsciiTable();

char FoldAscii(char c) { return AsciiTable[static_cast<unsigned char>(c)]; }

bool FindAscii(std::string_view text, std::string_view needle) {
  if (text.size() < needle.size()) return false;
  const char* const end = text.data() + (text.size() - needle.size());
  for (const char* at = text.data(); at <= end; ++at) {
    if (FoldAscii(*at) != needle[0]) continue;
    std::size_t i = 1;
    while (i < needle.size() && FoldAscii(at[i]) == needle[i]) ++i;
    if (i == needle.size()) return true;
  }
  return false;
}

}  // namespace

void FoldText(std::string_view utf8, FoldedUnits& units) {
  if (!IsAscii(utf8)) {
    for (std::size_t at = 0; at < utf8.size();) AppendFolded(NextCharacter(utf8, at), units);
    return;
  }
  const qsizetype former = units.size();
  units.resize(former + qsizetype(utf8.size()));
  // Without the table, so that many are folded at once.
  std::transform(utf8.begin(), utf8.end(), units.begin() + former, [](char c) {
    const auto unit = static_cast<unsigned char>(c);
    return char16_t(unit + (unsigned(unit - 'A') < 26U ? 'a' - 'A' : 0));
  });
}

TextNeedle::TextNeedle(const QString& text) {
  FoldedUnits units;
  for (const char32_t character : text.toUcs4()) AppendFolded(character, units);
  folded_.assign(units.begin(), units.end());
  if (std::all_of(folded_.begin(), folded_.end(), [](char16_t unit) { return unit < 0x80; }))
    ascii_.assign(folded_.begin(), folded_.end());
}

bool TextNeedle::Includes(const TextNeedle& other) const {
  return folded_.find(other.folded_) != std::u16string::npos;
}

bool TextNeedle::IsOfNumbers() const {
  return !ascii_.empty() && ascii_.find_first_not_of("0123456789+-.e") == std::string::npos;
}

bool TextNeedle::IsIn(std::string_view utf8) const {
  if (folded_.empty() || (!ascii_.empty() && FindAscii(utf8, ascii_))) return !folded_.empty();
  if (IsAscii(utf8)) return false;
  FoldedUnits units;
  FoldText(utf8, units);
  return std::u16string_view(units.data(), std::size_t(units.size())).find(folded_) !=
         std::u16string_view::npos;
}

bool TextNeedle::IsIn(const QString& text) const {
  const QByteArray bytes = text.toUtf8();
  return IsIn(std::string_view(bytes.constData(), std::size_t(bytes.size())));
}

// A letter that is folded to several is taken whole, and so are the accents behind the last one.
std::vector<TextNeedle::Piece> TextNeedle::PiecesIn(const QString& text) const {
  std::vector<Piece> pieces;
  if (folded_.empty()) return pieces;
  FoldedUnits units;
  QVarLengthArray<qsizetype, 512> origins;
  for (qsizetype at = 0; at < text.size();) {
    const bool pair = text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
    AppendFolded(pair ? QChar::surrogateToUcs4(text[at], text[at + 1]) : text[at].unicode(), units);
    while (origins.size() < units.size()) origins.append(at);
    at += pair ? 2 : 1;
  }
  const std::u16string_view folded(units.data(), std::size_t(units.size()));
  for (std::size_t found = folded.find(folded_); found != std::u16string_view::npos;) {
    qsizetype end = qsizetype(found + folded_.size());
    while (end < origins.size() && origins[end] == origins[end - 1]) ++end;
    const qsizetype start = origins[qsizetype(found)];
    pieces.push_back({start, (end < origins.size() ? origins[end] : text.size()) - start});
    found = folded.find(folded_, std::size_t(end));
  }
  return pieces;
}

}  // namespace vorlina
