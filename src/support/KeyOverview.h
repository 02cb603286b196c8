// The keys of the windows as they are told to the user, made from the windows' own commands.
#pragma once

#include <QString>
#include <span>
#include <vector>

#include "base/Commands.h"

namespace vorlina {

struct KeyLine {
  QString keys;  // by the names of the desktop and the language, such as "F4, Alt+Down"
  QString use;
};

// A window, or a part of one.
struct KeyGroup {
  QString title;
  std::vector<KeyLine> lines;

  // A command without a shortcut adds nothing.
  void Add(std::span<const ToolbarCommand> commands);
  void Add(std::span<const MenuCommand> commands);
  void Add(std::span<const KeyUse> uses);
};

// All of it, a line for each.
QString AsText(const std::vector<KeyGroup>& groups);

}  // namespace vorlina
