// The commands of the main window that are about the program itself: updates, tour, options, about.
#pragma once

#include <QString>
#include <functional>
#include <map>

class QWidget;

namespace vorlina {

class Connection;

struct ProgramContext {
  QWidget& owner;          // of the windows that they open
  Connection& connection;  // of the catalogs
  // Closes the grid windows. Where one closes late, false now, and the given step behind it.
  std::function<bool(const std::function<void()>& again)> closeWindows;
};

// By the keys of their entries. What the context refers to outlives them.
std::map<QString, std::function<void()>> ProgramCommands(const ProgramContext& context);

}  // namespace vorlina
