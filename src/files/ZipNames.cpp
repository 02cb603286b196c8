#include "ZipNames.h"

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>

namespace files {
namespace {

constexpr qsizetype LongestSegment = 255;  // bytes, the least that today's file systems take
constexpr qsizetype LongestName = 1024;

// Joins letters in several scripts, and the parts of one emoji.
constexpr bool IsJoiner(char32_t c) { return c == 0x200C || c == 0x200D; }

bool IsAllowed(char32_t c) {
  if (c < 0x80) return c >= 0x20 && c < 0x7F && !QStringView(u"\\:*?\"<>|").contains(QChar(char16_t(c)));
  switch (QChar::category(c)) {
    case QChar::Other_Control:
    case QChar::Other_Surrogate:
    case QChar::Other_PrivateUse:
    case QChar::Other_NotAssigned:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
      return false;
    case QChar::Other_Format:  // turns the direction of text around, or is not seen at all
      return IsJoiner(c);
    default:
      return c != 0xFFFD;  // stands for what could not be read
  }
}

// Names that Windows takes for devices, whatever extension follows.
bool IsDeviceName(const QString& segment) {
  static const QRegularExpression device(
      u"^(CON|PRN|AUX|NUL|CLOCK\\$|CONIN\\$|CONOUT\\$|(COM|LPT)[0-9\u00B9\u00B2\u00B3])$"_qs,
      QRegularExpression::CaseInsensitiveOption);
  return device.match(segment.section(u'.', 0, 0).trimmed()).hasMatch();
}

bool IsGoodSegment(const QString& segment) {
  if (segment.isEmpty() || segment.endsWith(u'.') || segment.endsWith(u' ')) return false;
  if (segment.toUtf8().size() > LongestSegment || IsDeviceName(segment)) return false;
  const QList<uint> characters = segment.toUcs4();
  return std::all_of(characters.begin(), characters.end(), IsAllowed);
}

}  // namespace

bool IsGoodZipName(const QString& name) {
  const QStringList segments = name.split(u'/');
  return name.size() <= LongestName && std::all_of(segments.begin(), segments.end(), IsGoodSegment);
}

void ZipNames::Add(const QString& name, bool folder) {
  if (!IsGoodZipName(name)) fail_(ZipFault::BadName, name);
  for (qsizetype at = name.indexOf(u'/'); at >= 0; at = name.indexOf(u'/', at + 1))
    AddSpelling(name.left(at), true);
  AddSpelling(name, folder);
}

// A folder may come again, spelled as before; a file may not.
void ZipNames::AddSpelling(const QString& path, bool folder) {
  const auto [known, isNew] = spellings_.try_emplace(path.toCaseFolded(), folder ? path : QString());
  if (!isNew && (!folder || known->second != path)) fail_(ZipFault::Twin, path);
}

}  // namespace files
