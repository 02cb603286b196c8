// Finding in the rows of the product grid's window over 1,000,000 products, on Qt's offscreen platform, from
// the typed letter to the painted match, and against SQLite's own LIKE over the same columns and rows: the
// two in turn, their medians compared.
#include <malloc.h>
#include <QAction>
#include <QApplication>
#include <QDragEnterEvent>
#include <QLineEdit>
#include <QToolButton>
#include <ctime>
#include <memory>

#include "GridData.h"
#include "base/AppPath.h"
#include "base/Helpers.h"
#include "grid/DataGrid.h"
#include "grid/RowFinder.h"
#include "products/frmEditCatalog.h"
#include "store/Transaction.h"
#include "support/Language.h"

using namespace vorlina;

namespace {

constexpr int Rounds = 9;
constexpr int Catalog = 3;

std::unique_ptr<frmEditCatalog> Edit(Data& data) {
  auto window = std::make_unique<frmEditCatalog>();
  window->Connessione = std::make_unique<Connection>();
  window->Connessione->Open(data.connection.ConnectionText());
  window->rsCatalogo.Open({.table = u"Cataloghi"_qs, .where = u"IDCatalogo=?"_qs, .values = {Catalog}},
                          *window->Connessione);
  window->LoadForm();
  window->resize(1080, 640);
  window->show();
  QApplication::processEvents();
  return window;
}

// A connection without the program's own LIKE.
class Plain {
 public:
  explicit Plain(const QString& path) : database_(path.toStdString(), SQLite::OPEN_READONLY) {}

  int Like(const QString& text) {
    SQLite::Statement statement(
        database_,
        "SELECT rowid FROM Prodotti WHERE IDCatalogo=? AND (CodiceProdotto LIKE ?2 OR Descrizione LIKE ?2 OR "
        "Valore1 LIKE ?2 OR Valore2 LIKE ?2 OR Valore3 LIKE ?2)");
    statement.bind(1, Catalog);
    statement.bind(2, QString(u'%' + text + u'%').toStdString());
    int count = 0;
    while (statement.executeStep()) ++count;
    return count;
  }

 private:
  SQLite::Database database_;
};

double ProcessorMilliseconds() { return 1000.0 * double(std::clock()) / CLOCKS_PER_SEC; }

class Finding {
 public:
  explicit Finding(Data& data) : window_(Edit(data)) {
    grid_ = window_->findChild<DataGrid*>(u"grdProducts"_qs);
    grid_->setFocus();
    line_ = window_->findChild<QLineEdit*>(u"txtFind"_qs);
    finder_ = window_->findChild<QWidget*>(u"findBar"_qs)->findChild<RowFinder*>();
    Reopen();
  }

  DataGrid& Grid() { return *grid_; }
  const RowFinder& Finder() const { return *finder_; }

  void StandOn(int row) {
    line_->clear();
    Run([] { return true; });
    if (!grid_->GoTo(row)) std::abort();
    QApplication::processEvents();
  }
  // Nothing is known of the rows then.
  void Reopen() {
    line_->clear();
    window_->findChild<QToolButton*>(u"cmdCloseFind"_qs)->click();
    window_->findChild<QAction*>(u"mnuTrova"_qs)->trigger();
  }
  // Until all rows are read for what may be typed.
  void Prepare() {
    line_->clear();
    Run([this] { return !finder_->IsPreparing(); });
  }
  void Type(const QString& text) { line_->setText(text); }
  // Until the match is painted, what else is to be found left for later.
  void ToFirst() {
    Run([this] { return !finder_->IsSeeking(); });
    if (window_->grab().isNull()) std::abort();
  }
  void ToEnd() {
    Run([this] { return !finder_->IsRunning(); });
  }
  // The longest that other events waited, painting among it; also without what other programs took meanwhile.
  void TellLongest() const {
    std::printf("longest time away from events %.1f ms, %.1f ms of the processor\n", longest_, longestBusy_);
    std::fflush(stdout);
  }

 private:
  void Run(const std::function<bool()>& done) {
    do {
      const double before = ProcessorMilliseconds();
      longest_ =
          std::max(longest_, Milliseconds([] { QApplication::processEvents(QEventLoop::AllEvents, 0); }));
      longestBusy_ = std::max(longestBusy_, ProcessorMilliseconds() - before);
    } while (!done());
  }

  std::unique_ptr<frmEditCatalog> window_;
  DataGrid* grid_;
  QLineEdit* line_;
  RowFinder* finder_;
  double longest_ = 0;
  double longestBusy_ = 0;
};

// The row's code is one of a kind, so that the distance is what it is.
void First(Finding& finding, bool prepared, const std::string& what, int from, int to) {
  std::vector<double> times;
  std::vector<double> busy;
  const QString code = NullToEmpty(finding.Grid().Rows().Value(to, 0));
  for (int round = 0; round < Rounds; ++round) {
    finding.StandOn(from);
    prepared ? finding.Prepare() : finding.Reopen();
    const double before = ProcessorMilliseconds();
    times.push_back(Milliseconds([&] {
      finding.Type(code);
      finding.ToFirst();
    }));
    busy.push_back(ProcessorMilliseconds() - before);
    if (finding.Grid().CurrentRow() != to) std::abort();
  }
  std::printf("%-50s %9.2f ms until painted, %9.2f ms of the processor\n", what.c_str(), Median(times),
              Median(busy));
  std::fflush(stdout);
}

void Firsts(Finding& finding, const std::string& order) {
  const int last = finding.Grid().Rows().RecordCount() - 1;
  for (const bool prepared : {false, true}) {
    const std::string what = order + (prepared ? "all read, " : "just opened, ");
    for (const int distance : {0, 1'000, 10'000, 100'000, 499'000})
      First(finding, prepared, what + std::to_string(distance) + " rows on", 500'000, 500'000 + distance);
    First(finding, prepared, what + "1 row back, round the end", 500'000, 499'999);
    First(finding, prepared, what + "to the last row from the first", 0, last);
  }
}

double AllocatedMegabytes() {
  const struct mallinfo2 memory = mallinfo2();
  return double(memory.uordblks + memory.hblkhd) / 1e6;
}

void Preparing(Finding& finding) {
  finding.Reopen();
  const double before = AllocatedMegabytes();
  const double time = Milliseconds([&] { finding.Prepare(); });
  std::printf("reading all rows for what may be typed: %.0f ms, %.1f MB kept\n", time,
              AllocatedMegabytes() - before);
}

void Whole(Finding& finding, Plain& plain, bool prepared, const QString& text, double bound,
           const std::string& what) {
  int bare = 0;
  Compare(
      what, Rounds, bound, [&] { bare = plain.Like(text); },
      [&] {
        finding.Type(text);
        finding.ToEnd();
      },
      [&] {
        finding.StandOn(500'000);
        prepared ? finding.Prepare() : finding.Reopen();
      });
  std::printf("%-44s %d matches, LIKE finds %d\n", "", finding.Finder().Count(), bare);
}

}  // namespace

// Takes the folder in which the database is made; the temporary one where none is given.
int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  SetLanguage(u"English"_qs);
  QTemporaryDir home;
  SetAppPath(home.path());
  Data data(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QDir::tempPath());
  Transaction transaction(data.connection);
  data.connection.Execute(
      u"UPDATE Cataloghi SET NomeValore1='Price', NomeValore2='Size', NomeValore3='Weight'"_qs);
  transaction.Commit();
  Plain plain(data.connection.DataSource());
  Finding finding(data);
  Preparing(finding);
  finding.TellLongest();
  Firsts(finding, "");
  for (const bool prepared : {false, true}) {
    const std::string what = prepared ? "all read, " : "just opened, ";
    Whole(finding, plain, prepared, u"smalto verde, numero 77"_qs, 3, what + "some match");
    Whole(finding, plain, prepared, u"decoro"_qs, 3, what + "all match");
    Whole(finding, plain, prepared, u"not there"_qs, 3, what + "none match");
    Whole(finding, plain, prepared, u"caffè"_qs, 3, what + "none match an accent");
    Whole(finding, plain, prepared, u"qz"_qs, 3, what + "none match two letters");
  }
  finding.TellLongest();
  finding.Grid().SetSort(u"Descrizione"_qs, SortDirection::Ascending);
  Firsts(finding, "sorted, ");
  for (const bool prepared : {false, true})
    Whole(finding, plain, prepared, u"smalto verde, numero 77"_qs, 0, "sorted, some match");
  finding.TellLongest();
  return 0;
}
