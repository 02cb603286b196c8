// Completing what is typed, in a catalog of 100,000 products with 10,000 values of a filter and 400,000 rows
// of tech data, against a lookup in an index that suits it.
#include <QCoreApplication>

#include "CardData.h"
#include "products/Completion.h"
#include "products/FilterValues.h"
#include "products/TechData.h"
#include "support/Language.h"

using namespace vorlina;

namespace {

constexpr int Lookups = 1'000;

// A table with nothing but a catalog's texts, and its index.
void MakeIndexed(const Connection& bare, const std::string& table, const std::string& texts) {
  for (const std::string& sql :
       {"CREATE TABLE " + table + " (IDCatalogo INTEGER, Valore TEXT COLLATE NOCASE)",
        "INSERT INTO " + table + texts, "CREATE INDEX By" + table + " ON " + table + " (IDCatalogo, Valore)"})
    Bare(bare, sql).Run();
}

std::string LookupIn(const std::string& table, const std::string& begin) {
  return "SELECT Valore FROM " + table + " WHERE IDCatalogo=1 AND Valore>='" + begin + "' AND Valore<'" +
         begin + "~' ORDER BY Valore LIMIT 1";
}

// What has been typed of different values, from their first digit to the last.
std::vector<std::string> Typed() {
  std::vector<std::string> typed;
  for (int i = 0; i < Lookups; ++i) {
    const std::string digits = std::to_string(100'000 + i * 37 % ValueCount).substr(1);
    typed.push_back("value " + digits.substr(0, std::size_t(1 + i % 5)));
  }
  return typed;
}

void Values(Connection& ours, const Connection& bare) {
  MakeIndexed(bare, "BareValues", " SELECT IDCatalogo,Valore FROM Filtri WHERE IDNomeFiltro=1");
  const std::vector<std::string> typed = Typed();
  Completion completion;
  Compare(
      "1,000 keystrokes in a filter", 31, 2,
      [&] {
        for (const std::string& text : typed) Bare(bare, LookupIn("BareValues", text)).Run();
      },
      [&] {
        for (const std::string& text : typed)
          if (completion.First(QString::fromStdString(text)) == nullptr) std::abort();
      },
      [&] { completion = Completion(FilterItems(1, 1, ours)); });
  Compare(
      "reading the values of the filter", 31, 0,
      [&] { Bare(bare, "SELECT IDValore,Valore FROM Filtri WHERE IDCatalogo=? AND IDNomeFiltro=1").Row(1); },
      [&] {
        if (Completion(FilterItems(1, 1, ours)).First(u"value 0"_qs) == nullptr) std::abort();
      });
}

void Features(Connection& ours, const Connection& bare) {
  MakeIndexed(bare, "BareFeatures", " SELECT IDCatalogo,Caratteristica FROM SchedeTecniche");
  const TechData data(1, u"P0000000"_qs, ours);
  int number = 0;
  const auto next = [&] { return "feature " + std::to_string(++number % 4); };
  Compare(
      "a keystroke in a feature", 31, 2, [&] { Bare(bare, LookupIn("BareFeatures", next())).Run(); },
      [&] {
        if (data.Completed(QString::fromStdString(next())).isEmpty()) std::abort();
      });
}

}  // namespace

// Takes the folder in which the databases are made; the temporary one where none is given.
int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  SetLanguage(u"English"_qs);
  for (const Others others : {Others::None, Others::AMillion}) {
    const CardData data(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QDir::tempPath(), others);
    Connection ours;
    Connection bare;
    data.OpenBoth(ours, bare);
    std::printf("%s\n", others == Others::None ? "alone" : "beside a catalog of 1,000,000");
    Values(ours, bare);
    Features(ours, bare);
  }
  return 0;
}
