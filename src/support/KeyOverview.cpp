#include "support/KeyOverview.h"

#include <QKeySequence>

#include "base/Texts.h"

namespace vorlina {
namespace {

void AddLine(std::vector<KeyLine>& lines, const char16_t* keys, const QString& use) {
  if (*keys == 0) return;
  QStringList shown;
  for (const QKeySequence& sequence : QKeySequence::listFromString(Text(keys)))
    shown += sequence.toString(QKeySequence::NativeText);
  lines.push_back({shown.join(u", "_qs), use});
}

}  // namespace

void KeyGroup::Add(std::span<const ToolbarCommand> commands) {
  for (const ToolbarCommand& command : commands) {
    const QString toolTip = Texts::tr(command.toolTip, command.comment);
    AddLine(lines, command.shortcut, toolTip.isEmpty() ? Texts::tr(command.caption).trimmed() : toolTip);
  }
}

void KeyGroup::Add(std::span<const MenuCommand> commands) {
  for (const MenuCommand& command : commands) AddLine(lines, command.shortcut, Texts::tr(command.caption));
}

void KeyGroup::Add(std::span<const KeyUse> uses) {
  for (const KeyUse& use : uses) AddLine(lines, use.keys, Texts::tr(use.use));
}

QString AsText(const std::vector<KeyGroup>& groups) {
  QString text;
  for (const KeyGroup& group : groups) {
    text += group.title + u'\n';
    for (const KeyLine& line : group.lines) text += line.keys + u'\t' + line.use + u'\n';
  }
  return text;
}

}  // namespace vorlina
