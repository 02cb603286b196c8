#include "batch/Output.h"

#include <algorithm>
#include <cstdio>
#include <cwchar>

#ifdef Q_OS_UNIX
#include <sys/ioctl.h>
#include <unistd.h>
#endif

#include "base/Texts.h"

namespace vorlina {
namespace {

constexpr int PauseMilliseconds = 100;

bool IsTerminal() {
#ifdef Q_OS_UNIX
  return ::isatty(STDERR_FILENO) == 1;
#else
  return false;
#endif
}

int TerminalColumns() {
#ifdef Q_OS_UNIX
  winsize size{};
  if (::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) return size.ws_col;
#endif
  return 80;
}

// Names come from the user's data, and may come from someone else's: a terminal must not obey them.
QByteArray Harmless(const QString& text) {
  QString clean = text;
  for (QChar& c : clean)
    if (c.category() == QChar::Other_Control && c != u'\n') c = u' ';
  return clean.toUtf8();
}

void Write(std::FILE* file, const QByteArray& bytes) {
  std::fwrite(bytes.constData(), 1, std::size_t(bytes.size()), file);
  std::fflush(file);
}

bool IsNumber(const QString& text) {
  return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar c) { return c.isDigit(); });
}

// Cut at a whole character.
QString CutToWidth(const QString& text, int columns) {
  QString cut = text;
  while (TerminalWidth(cut) > columns) cut.chop(cut.back().isLowSurrogate() ? 2 : 1);
  return cut;
}

}  // namespace

void Print(const QString& text) { Write(stdout, Harmless(text + u'\n')); }
void PrintError(const QString& text) { Write(stderr, Harmless(text + u'\n')); }

int TerminalWidth(const QString& text) {
  int width = 0;
  for (const uint character : text.toUcs4()) {
#ifdef Q_OS_UNIX
    const int columns = ::wcwidth(wchar_t(character));
    width += columns < 0 ? 1 : columns;
#else
    width += QChar::category(character) == QChar::Mark_NonSpacing ? 0 : 1;
#endif
  }
  return width;
}

QString Table(const QStringList& headings, const std::vector<QStringList>& rows) {
  std::vector<int> widths;
  std::vector<bool> numbers;
  for (qsizetype i = 0; i < headings.size(); ++i) {
    int width = TerminalWidth(headings[i]);
    bool number = !rows.empty();
    for (const QStringList& row : rows) {
      width = std::max(width, TerminalWidth(row[i]));
      number = number && IsNumber(row[i]);
    }
    widths.push_back(width);
    numbers.push_back(number);
  }
  const auto line = [&](const QStringList& row) {
    QString text;
    for (qsizetype i = 0; i < row.size(); ++i) {
      const QString blanks(widths[std::size_t(i)] - TerminalWidth(row[i]), u' ');
      text += (i > 0 ? u"  "_qs : QString()) + (numbers[std::size_t(i)] ? blanks + row[i] : row[i] + blanks);
    }
    while (text.endsWith(u' ')) text.chop(1);
    return text;
  };
  QStringList lines{line(headings)};
  for (const QStringList& row : rows) lines += line(row);
  return lines.join(u'\n');
}

QStringList FirstOf(const QStringList& lines) {
  constexpr qsizetype most = 20;
  QStringList first;
  for (const QString& line : lines.mid(0, most)) first += u"  "_qs + line;
  if (lines.size() > most)
    first += Texts::tr("  e altri %1; --json li elenca tutti").arg(lines.size() - most);
  return first;
}

ProgressLine::ProgressLine(bool enabled) : enabled_(enabled && IsTerminal()) {}

void ProgressLine::Show(qint64 done, qint64 total, const QString& step) {
  if (!enabled_ || (last_.isValid() && last_.elapsed() < PauseMilliseconds)) return;
  last_.start();
  const qint64 percent = total > 0 ? std::clamp<qint64>(done * 100 / total, 0, 100) : 0;
  const QString line = u"%1 %  %2"_qs.arg(percent, 3).arg(QString(step).replace(u'\n', u' '));
  Write(stderr, "\r" + Harmless(CutToWidth(line, TerminalColumns() - 1)) + "\x1b[K");
  shown_ = true;
}

void ProgressLine::Clear() {
  if (shown_) Write(stderr, "\r\x1b[K");
  shown_ = false;
}

}  // namespace vorlina
