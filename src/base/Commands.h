// Commands of a window as data: keys, captions and tool tips in both languages, pictures and shortcuts.
#pragma once

#include <QString>

namespace vorlina {

// One text in both languages; blanks are part of it.
struct Caption {
  const char16_t* italian;
  const char16_t* english;
};

struct ToolbarCommand {
  const char16_t* key;
  Caption caption;
  Caption toolTip;
  const char16_t* icon;
  const char16_t* shortcut;
};

struct MenuCommand {
  const char16_t* key;
  Caption caption;
  const char16_t* shortcut = u"";
};

inline QString Text(const char16_t* text) { return QString::fromUtf16(text); }

}  // namespace vorlina
