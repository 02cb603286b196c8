#include "grid/WidgetFindBar.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QLoggingCategory>
#include <QScopedValueRollback>
#include <QToolButton>
#include <algorithm>
#include <utility>

#include "base/CommandIcon.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Texts.h"
#include "grid/DataGrid.h"
#include "store/RowErrors.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(log, "vorlina.grid", QtInfoMsg)

// How long a slice of the search keeps other events waiting.
constexpr int SliceMilliseconds = 8;
// Until it is tried again where a box is up, or another program holds the database.
constexpr int PauseMilliseconds = 100;

QToolButton* MakeButton(QWidget* parent, const QString& name) {
  auto* button = new QToolButton(parent);
  button->setObjectName(name);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  return button;
}

void Describe(QToolButton& button, const QString& text, const QString& key) {
  button.setAccessibleName(text);
  button.setToolTip(PlainToolTip(key.isEmpty() ? text : text + u" ("_qs + key + u')'));
}

}  // namespace

WidgetFindBar::WidgetFindBar(QWidget* parent) : QWidget(parent) {
  MakeControls();
  setFocusProxy(txtFind);
  work_.setSingleShot(true);
  connect(&work_, &QTimer::timeout, this, &WidgetFindBar::Work);
  connect(txtFind, &QLineEdit::textChanged, this, &WidgetFindBar::TextTyped);
  connect(cmdFindNext, &QToolButton::clicked, this, &WidgetFindBar::FindNext);
  connect(cmdFindPrevious, &QToolButton::clicked, this, &WidgetFindBar::FindPrevious);
  connect(cmdCloseFind, &QToolButton::clicked, this, &WidgetFindBar::Close);
  Localize();
  hide();
}

void WidgetFindBar::MakeControls() {
  lblFind = new QLabel(this);
  txtFind = new QLineEdit(this);
  txtFind->setObjectName(u"txtFind"_qs);
  txtFind->setClearButtonEnabled(true);
  lblFind->setObjectName(u"lblFind"_qs);
  lblFind->setBuddy(txtFind);
  cmdFindPrevious = MakeButton(this, u"cmdFindPrevious"_qs);
  cmdFindPrevious->setIcon(CommandIcon(u"previous"_qs));
  cmdFindNext = MakeButton(this, u"cmdFindNext"_qs);
  cmdFindNext->setIcon(CommandIcon(u"next"_qs));
  lblFound = new QLabel(this);
  lblFound->setObjectName(u"lblFound"_qs);
  lblFound->setTextFormat(Qt::PlainText);
  cmdCloseFind = MakeButton(this, u"cmdCloseFind"_qs);
  cmdCloseFind->setText(u"\u00D7"_qs);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(8, 4, 8, 4);
  layout->addWidget(lblFind);
  layout->addWidget(txtFind, 1);
  layout->addWidget(cmdFindPrevious);
  layout->addWidget(cmdFindNext);
  layout->addWidget(lblFound, 2);
  layout->addWidget(cmdCloseFind);
}

void WidgetFindBar::SetGrid(DataGrid& grid) {
  grid_ = &grid;
  finder_ = new RowFinder(grid.Rows(), this);
  finder_->Columns = [&grid] { return grid.TextColumns(); };
  connect(finder_, &RowFinder::Restarted, this, [this] { work_.start(0); });
  connect(&grid, &DataGrid::CurrentCellChanged, this, &WidgetFindBar::GridMoved);
  parentWidget()->installEventFilter(this);
}

void WidgetFindBar::SetKeys(const QString& next, const QString& previous) {
  nextKey_ = next;
  previousKey_ = previous;
  Localize();
}

void WidgetFindBar::Localize() {
  lblFind->setText(Texts::tr("&Trova:"));
  Describe(*cmdFindNext, Texts::tr("Trova il successivo"), nextKey_);
  Describe(*cmdFindPrevious, Texts::tr("Trova il precedente"), previousKey_);
  Describe(*cmdCloseFind, Texts::tr("Chiudi"), {});
}

void WidgetFindBar::Open() {
  if (!grid_->LeaveRow()) return;
  const bool opens = isHidden();
  show();
  txtFind->setFocus(Qt::ShortcutFocusReason);
  txtFind->selectAll();
  origin_ = grid_->currentIndex();
  if (opens) TextTyped();
}

void WidgetFindBar::Close() {
  const bool hadFocus = isAncestorOf(QApplication::focusWidget());
  hide();
  work_.stop();
  finder_->Clear();
  grid_->SetMarks({});
  if (hadFocus) grid_->setFocus();
}

// From the row where the search began, so that more letters find the same row where it still matches.
void WidgetFindBar::TextTyped() {
  const TextNeedle needle(txtFind->text());
  grid_->SetMarks(needle);
  steps_ = 0;
  lastStep_ = 1;
  typed_ = true;
  failed_ = wrapped_ = false;
  finder_->Find(needle, origin_.isValid() ? origin_.row() : std::max(grid_->CurrentRow(), 0), 1);
  work_.start(0);
}

void WidgetFindBar::Go(int step) {
  if (!grid_->LeaveRow()) return;
  if (txtFind->text().isEmpty()) return Open();
  const bool stopped = !finder_->IsRunning() && !finder_->IsComplete();
  const bool begins = isHidden() || finder_->Needle().IsEmpty() || stopped;
  if (begins) show();
  if (finder_->IsSeeking()) {
    steps_ += step;
    return;
  }
  lastStep_ = step;
  failed_ = typed_ = false;
  const int from = grid_->CurrentRow() + step;
  if (begins) {
    const TextNeedle needle(txtFind->text());
    grid_->SetMarks(needle);
    finder_->Find(needle, from, step);
  } else {
    finder_->Seek(from, step);
  }
  work_.start(0);
  Arrive();
}

void WidgetFindBar::Escape() {
  if (!finder_->IsRunning()) return Close();
  steps_ = 0;
  finder_->Stop();
  ShowFound();
}

// Not while a box is up: what it asks is about where the grid stands.
void WidgetFindBar::Work() {
  if (QApplication::activeModalWidget() != nullptr) return work_.start(PauseMilliseconds);
  try {
    if (finder_->Work(SliceMilliseconds)) work_.start(0);
  } catch (const LockedError&) {
    work_.start(PauseMilliseconds);
  } catch (const Error& error) {
    qCWarning(log) << "finding in rows:" << error.Description();
    finder_->Stop();
    failed_ = true;
  }
  if (IsElsewhere()) finder_->GiveUpSeeking();
  Arrive();
}

// Who works in the grid by now is not taken away from there by what was asked for before.
bool WidgetFindBar::IsElsewhere() const {
  return grid_->IsEditing() || (typed_ && window()->focusWidget() != txtFind);
}

void WidgetFindBar::Arrive() {
  if (const std::optional<RowFinder::Place> place = finder_->Take()) GoTo(*place);
  ShowFound();
}

// A row that cannot be left keeps the grid, and what else was asked for is given up.
void WidgetFindBar::GoTo(const RowFinder::Place& place) {
  const int steps = std::exchange(steps_, 0);
  if (place.row < 0) return;
  const QScopedValueRollback<bool> moving(moving_, true);
  if (!grid_->GoTo(place.row, KeyOf(grid_->Rows(), finder_->ColumnIn(place.row)))) return;
  wrapped_ = place.wrapped;
  if (!typed_) origin_ = grid_->currentIndex();
  if (steps == 0) return;
  const int step = steps > 0 ? 1 : -1;
  steps_ = steps - step;
  Go(step);
}

// By hand, or to where more letters shall not lead back from.
void WidgetFindBar::GridMoved() {
  if (!moving_) {
    origin_ = grid_->currentIndex();
    wrapped_ = false;
    steps_ = 0;
    finder_->GiveUpSeeking();
  }
  if (isVisible()) ShowFound();
}

void WidgetFindBar::ShowFound() { lblFound->setText(FoundText()); }

QString WidgetFindBar::FoundText() const {
  if (finder_->Needle().IsEmpty()) return {};
  if (failed_) return Texts::tr("Il database non può essere letto");
  const QString count = QLocale().toString(finder_->Count());
  if (finder_->IsRunning() && finder_->Count() == 0) return Texts::tr("Ricerca in corso");
  const int number = finder_->NumberOf(grid_->CurrentRow());
  if (number == 0 && finder_->IsRunning()) return Texts::tr("Trovate finora: %1").arg(count);
  if (!finder_->IsRunning() && !finder_->IsComplete())
    return Texts::tr("Trovate: %1, ricerca interrotta").arg(count);
  if (finder_->Count() == 0) return Texts::tr("Nessun risultato");
  if (number == 0) return Texts::tr("Trovate: %1").arg(count);
  QString found = Texts::tr("%1 di %2").arg(QLocale().toString(number), count);
  if (!wrapped_) return found;
  return lastStep_ > 0 ? Texts::tr("%1, ripreso dall'inizio").arg(found)
                       : Texts::tr("%1, ripreso dalla fine").arg(found);
}

void WidgetFindBar::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Escape:
      return Escape();
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (cmdCloseFind->hasFocus()) return Close();
      return Go(event->modifiers().testFlag(Qt::ShiftModifier) || cmdFindPrevious->hasFocus() ? -1 : 1);
    default:
      return QWidget::keyPressEvent(event);
  }
}

bool WidgetFindBar::eventFilter(QObject* watched, QEvent* event) {
  const bool escapes = event->type() == QEvent::KeyPress && isVisible() &&
                       static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
  if (escapes) Escape();
  return escapes || QWidget::eventFilter(watched, event);
}

}  // namespace vorlina
