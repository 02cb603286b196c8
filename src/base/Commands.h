// Commands of a window as data: keys, captions and tool tips (source texts, of which blanks are a part),
// pictures and shortcuts.
#pragma once

#include <QString>

namespace vorlina {

struct ToolbarCommand {
  const char16_t* key;
  const char* caption;
  const char* toolTip;
  const char16_t* icon;
  const char16_t* shortcut;
  const char* comment = nullptr;  // tells its tool tip from the same text elsewhere
};

struct MenuCommand {
  const char16_t* key;
  const char* caption;
  const char16_t* shortcut = u"";
};

// Keys that are no command's, one or several split at "; ", and what they do.
struct KeyUse {
  const char16_t* keys;
  const char* use;
};

inline QString Text(const char16_t* text) { return QString::fromUtf16(text); }

}  // namespace vorlina
