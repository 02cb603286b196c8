// The product card over a catalog of 100,000 products, alone and beside one of 1,000,000, against the bare
// statements that it runs: the two in turn, their medians compared.
#include <QAction>
#include <QApplication>
#include <QPlainTextEdit>
#include <QSet>
#include <functional>
#include <memory>

#include "CardData.h"
#include "grid/DataGrid.h"
#include "products/frmEditCatalog.h"
#include "products/frmProduct.h"
#include "support/Language.h"

using namespace vorlina;

namespace {

constexpr int Rounds = 31;

// Sees that a window has been painted whenever that is waited for.
class Painted : public QObject {
 public:
  Painted() { qApp->installEventFilter(this); }
  void Wait(const QWidget& window) {
    while (!windows_.contains(&window)) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    windows_.clear();
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::Paint && widget != nullptr) windows_.insert(widget->window());
    return false;
  }

 private:
  QSet<const QWidget*> windows_;
};

// The grid's window, and what a user does in it and in its card.
class Hands {
 public:
  Hands() {
    window_.Connessione = std::make_unique<Connection>();
    window_.Connessione->Open(ConnectionTextFor(AppFile(u"Catalog.db"_qs)));
    window_.rsCatalogo.Open({.table = u"Cataloghi"_qs, .where = u"IDCatalogo=1"_qs}, *window_.Connessione);
    window_.LoadForm();
    window_.show();
    painted_.Wait(window_);
    window_.findChild<DataGrid*>(u"grdProducts"_qs)->GoTo(100);
  }

  QString text;  // what is saved

  const Connection& OwnConnection() const { return *window_.Connessione; }
  void Open() {
    window_.findChild<QAction*>(u"cmdEdit"_qs)->trigger();
    painted_.Wait(Card());
  }
  void Save() {
    Card().findChild<QPlainTextEdit*>(u"txtDescription"_qs)->setPlainText(text);
    Card().findChild<QAction*>(u"cmdSave"_qs)->trigger();
    if (!Card().Salvato) std::abort();
  }
  // Which has the grid read its rows again.
  void Close() {
    if (!Card().close()) std::abort();
    painted_.Wait(window_);
  }

 private:
  frmProduct& Card() { return *window_.findChild<frmProduct*>(); }

  Painted painted_;
  frmEditCatalog window_;
};

void Measure(const CardData& data) {
  Connection unused;
  Connection bare;
  data.OpenBoth(unused, bare);
  Hands hands;
  const struct {
    const char* name;
    std::function<void()> run;
  } steps[] = {{"opening the card, painted", [&] { hands.Open(); }},
               {"saving", [&] { hands.Save(); }},
               {"closing, the grid painted", [&] { hands.Close(); }}};
  // What each runs once windows and marks are there. The bare statements change the text to the second one,
  // the card back to the first.
  Recorded recorded[3];
  for (const QString& text : {u"first"_qs, u"second"_qs, u"first"_qs}) {
    hands.text = text;
    for (int i = 0; i < 3; ++i) {
      text == u"second" ? recorded[i].Record(hands.OwnConnection(), steps[i].run) : steps[i].run();
    }
  }
  std::vector<double> bareTimes[4];
  std::vector<double> ourTimes[4];
  const auto note = [](std::vector<double>* times, const std::function<void(int)>& run) {
    double sum = 0;
    for (int i = 0; i < 3; ++i) sum += times[i].emplace_back(Milliseconds([&] { run(i); }));
    times[3].push_back(sum);
  };
  for (int round = 0; round < Rounds; ++round) {
    note(bareTimes, [&](int i) { recorded[i].Run(bare); });
    note(ourTimes, [&](int i) { steps[i].run(); });
  }
  for (int i = 0; i < 4; ++i) {
    const double bareTime = Median(bareTimes[i]);
    const double ourTime = Median(ourTimes[i]);
    std::printf("%-44s bare %9.2f ms, ours %9.2f ms, ratio %5.2f%s\n", i < 3 ? steps[i].name : "all three",
                bareTime, ourTime, ourTime / bareTime, i < 3 ? "" : " (at most 2)");
  }
}

}  // namespace

// Takes the folder in which the databases are made; the temporary one where none is given.
int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  SetLanguage(u"English"_qs);
  for (const Others others : {Others::None, Others::AMillion}) {
    const CardData data(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QDir::tempPath(), others);
    std::printf("%s\n", others == Others::None ? "alone" : "beside a catalog of 1,000,000");
    Measure(data);
  }
  return 0;
}
