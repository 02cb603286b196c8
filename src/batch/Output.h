// What vorlina-batch writes: tables and lines, or one JSON object a run, and the progress on a terminal.
#pragma once

#include <QElapsedTimer>
#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <vector>

#include "base/Progress.h"

namespace vorlina {

// Writes text to the standard output, or to the standard error output. Control characters in it are not
// passed to a terminal.
void Print(const QString& text);
void PrintError(const QString& text);

// Rows under headings, each column as wide as its widest entry; columns of numbers to the right. Two blanks
// stand between columns, none at the end of a line.
QString Table(const QStringList& headings, const std::vector<QStringList>& rows);

// The lines of a kind, indented: the first twenty, and how many more there are, which the JSON has all.
QStringList FirstOf(const QStringList& lines);

// The width of a text on a terminal: two for wide letters and emoji, none for combining marks,
// one for the blank that stands for a control character.
int TerminalWidth(const QString& text);

// One line on the standard error output that is written over and over; nothing where that is no terminal, or
// where it is switched off.
class ProgressLine {
 public:
  explicit ProgressLine(bool enabled);
  ~ProgressLine() { Clear(); }
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  void Show(qint64 done, qint64 total, const QString& step);
  void Clear();

 private:
  bool enabled_;
  bool shown_ = false;
  QElapsedTimer last_;
};

}  // namespace vorlina
