// What a command of the product grid's window works on. A command is a procedure over it, and throws Error
// for what the user has to be told.
#pragma once

class QWidget;

namespace vorlina {

class CardCommands;
class Connection;
class ImportPictures;
class Properties;
class WidgetProductGrid;

struct GridContext {
  QWidget& owner;  // of the boxes
  WidgetProductGrid& grid;
  Connection* connection = nullptr;  // null once the window is closed
  int IDCatalogo = 0;
  CardCommands* card = nullptr;
  ImportPictures* import = nullptr;
  Properties* properties = nullptr;
  bool busy = false;  // with what must not lose its connection, while events come through
};

}  // namespace vorlina
