// Finding in the rows of the product grid's window over 1,000,000 products, on Qt's offscreen platform, from
// the typed letter to the painted match, and against SQLite's own LIKE over the same columns and rows: the
// two in turn, their medians compared.
#include <QAction>
#include <QApplication>
#include <QDragEnterEvent>
#include <QLineEdit>
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

class Finding {
 public:
  explicit Finding(Data& data) : window_(Edit(data)) {
    grid_ = window_->findChild<DataGrid*>(u"grdProducts"_qs);
    grid_->setFocus();
    window_->findChild<QAction*>(u"mnuTrova"_qs)->trigger();
    line_ = window_->findChild<QLineEdit*>(u"txtFind"_qs);
    finder_ = window_->findChild<QWidget*>(u"findBar"_qs)->findChild<RowFinder*>();
  }

  DataGrid& Grid() { return *grid_; }
  const RowFinder& Finder() const { return *finder_; }

  void StandOn(int row) {
    line_->clear();
    Run([] { return true; });
    if (!grid_->GoTo(row)) std::abort();
    QApplication::processEvents();
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
  static double ProcessorMilliseconds() { return 1000.0 * double(std::clock()) / CLOCKS_PER_SEC; }
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
void First(Finding& finding, const std::string& what, int from, int to) {
  std::vector<double> times;
  const QString code = NullToEmpty(finding.Grid().Rows().Value(to, 0));
  for (int round = 0; round < Rounds; ++round) {
    finding.StandOn(from);
    times.push_back(Milliseconds([&] {
      finding.Type(code);
      finding.ToFirst();
    }));
    if (finding.Grid().CurrentRow() != to) std::abort();
  }
  std::printf("%-44s %9.2f ms until painted\n", what.c_str(), Median(times));
  std::fflush(stdout);
}

void Whole(Finding& finding, Plain& plain, const QString& text, double bound, const std::string& what) {
  int bare = 0;
  Compare(
      what, Rounds, bound, [&] { bare = plain.Like(text); },
      [&] {
        finding.Type(text);
        finding.ToEnd();
      },
      [&] { finding.StandOn(500'000); });
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
  const int last = finding.Grid().Rows().RecordCount() - 1;
  for (const int distance : {0, 1'000, 10'000, 100'000, 499'000})
    First(finding, "first match " + std::to_string(distance) + " rows on", 500'000, 500'000 + distance);
  First(finding, "first match 1 row back, round the end", 500'000, 499'999);
  Whole(finding, plain, u"smalto verde, numero 77"_qs, 3, "all rows, some match");
  Whole(finding, plain, u"decoro"_qs, 3, "all rows, all match");
  Whole(finding, plain, u"not there"_qs, 3, "all rows, none match");
  Whole(finding, plain, u"caffè"_qs, 3, "all rows, none match an accent");
  finding.TellLongest();
  finding.Grid().SetSort(u"Descrizione"_qs, SortDirection::Ascending);
  for (const int distance : {0, 1'000, 10'000, 100'000, 499'000})
    First(finding, "sorted, first match " + std::to_string(distance) + " rows on", 500'000,
          500'000 + distance);
  First(finding, "sorted, to the last row from the first", 0, last);
  Whole(finding, plain, u"smalto verde, numero 77"_qs, 0, "sorted, all rows, some match");
  finding.TellLongest();
  return 0;
}
