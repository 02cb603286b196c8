// The yardstick: the least that a Qt program with a table does.
#include <QApplication>
#include <QMainWindow>
#include <QTableWidget>

#include "FirstPaint.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QMainWindow window;
  auto* table = new QTableWidget(20, 5, &window);
  for (int row = 0; row < 20; ++row)
    for (int column = 0; column < 5; ++column)
      table->setItem(row, column, new QTableWidgetItem(QString::number(row * column)));
  window.setCentralWidget(table);
  window.resize(900, 560);
  const FirstPaint paint(window);
  window.show();
  return QApplication::exec();
}
