// The program and what it is measured against: the two in turn, so that whatever else the computer does meets
// both, and their medians compared.
#pragma once

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "store/Connection.h"

namespace vorlina {

inline double Milliseconds(const std::function<void()>& step) {
  const auto start = std::chrono::steady_clock::now();
  step();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

inline double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

// In turn, the medians compared. A bound of 0 is none.
inline void Compare(const std::string& what, int rounds, double bound, const std::function<void()>& bare,
                    const std::function<void()>& ours, const std::function<void()>& between = {}) {
  std::vector<double> bareTimes;
  std::vector<double> ourTimes;
  for (int i = 0; i < rounds; ++i) {
    bareTimes.push_back(Milliseconds(bare));
    if (between) between();
    ourTimes.push_back(Milliseconds(ours));
  }
  const double bareTime = Median(bareTimes);
  const double ourTime = Median(ourTimes);
  std::printf("%-44s bare %9.2f ms, ours %9.2f ms, ratio %5.2f", what.c_str(), bareTime, ourTime,
              ourTime / bareTime);
  std::printf(bound > 0 ? " (at most %.2f)\n" : "\n", bound);
  std::fflush(stdout);
}

// A statement of the bare interface, stepped to its end.
class Bare {
 public:
  Bare(const Connection& connection, const std::string& sql) : handle_(connection.Database().getHandle()) {
    if (sqlite3_prepare_v2(handle_, sql.c_str(), -1, &statement_, nullptr) != SQLITE_OK) {
      std::fprintf(stderr, "%s\n", sqlite3_errmsg(handle_));
      std::abort();
    }
  }
  ~Bare() { sqlite3_finalize(statement_); }
  Bare(const Bare&) = delete;
  Bare& operator=(const Bare&) = delete;

  std::vector<sqlite3_int64> Keys(int catalog) {
    sqlite3_bind_int(statement_, 1, catalog);
    std::vector<sqlite3_int64> keys;
    while (sqlite3_step(statement_) == SQLITE_ROW) keys.push_back(sqlite3_column_int64(statement_, 0));
    return keys;
  }
  void Row(sqlite3_int64 key) {
    sqlite3_bind_int64(statement_, 1, key);
    while (sqlite3_step(statement_) == SQLITE_ROW)
      for (int i = 0; i < sqlite3_column_count(statement_); ++i) sqlite3_column_text(statement_, i);
    sqlite3_reset(statement_);
  }
  void Update(const std::string& text, sqlite3_int64 key) {
    sqlite3_bind_text(statement_, 1, text.c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_int64(statement_, 2, key);
    if (sqlite3_step(statement_) != SQLITE_DONE) std::abort();
  }

  void Run() {
    while (sqlite3_step(statement_) == SQLITE_ROW) {
    }
    if (sqlite3_reset(statement_) != SQLITE_OK) std::abort();
  }

 private:
  sqlite3* handle_;
  sqlite3_stmt* statement_ = nullptr;
};

}  // namespace vorlina
