#include "base/WidgetTabKeys.h"

#include <QShortcut>
#include <QTabWidget>

namespace vorlina {

void AddTabKeys(QWidget& window, QTabWidget& tabs) {
  for (const auto& [key, step] : {std::pair{u"Ctrl+Tab"_qs, 1},
                                  {u"Ctrl+PgDown"_qs, 1},
                                  {u"Ctrl+Shift+Tab"_qs, -1},
                                  {u"Ctrl+Shift+Backtab"_qs, -1},
                                  {u"Ctrl+PgUp"_qs, -1}})
    QObject::connect(new QShortcut(QKeySequence(key), &window), &QShortcut::activated, &tabs,
                     [&tabs, turn = step] {
                       tabs.setCurrentIndex((tabs.currentIndex() + turn + tabs.count()) % tabs.count());
                     });
}

}  // namespace vorlina
