// Finds a text in the rows of a grid, a little at a time, without a thread: whoever has time calls Work.
//
// All rows are looked through in the order of their keys, as the database reads them fastest, and a bit per
// key is kept; in the end each row has a bit by its place, which tells how many match, and which comes next.
// Until then what is sought is walked to as well, row by row from where it begins, since it is mostly near.
// Rows that were read once are passed over by their signatures where the text is not in them; where there is
// time left, all are read for that.
//
// No statement stays open between two calls of Work. Rows that come, go, change or are sorted have it begin
// anew by itself.
#pragma once

#include <QObject>
#include <QSet>
#include <functional>
#include <optional>
#include <vector>

#include "base/TextFolding.h"
#include "grid/KeyMarks.h"
#include "grid/RecordsetModel.h"
#include "grid/RowMarks.h"
#include "grid/RowSignatures.h"
#include "store/FieldReader.h"

namespace vorlina {

class RowFinder : public QObject {
  Q_OBJECT

 public:
  // A row that was sought, -1 where none matches; whether it was come to by way of the other end.
  struct Place {
    int row = -1;
    bool wrapped = false;
  };

  explicit RowFinder(const RecordsetModel& rows, QObject* parent = nullptr);

  // The columns to look through, from the left. To be set once.
  std::function<QList<int>()> Columns;

  // Begins to find a text, and seeks as Seek does. An empty one has rows read for those to come.
  void Find(const TextNeedle& needle, int from, int step);
  // Seeks the nearest match from a row on, itself included, downwards or with -1 upwards, round the end.
  void Seek(int from, int step);
  // What was sought, once it is known.
  std::optional<Place> Take();
  void GiveUpSeeking();
  // Keeps what was found so far.
  void Stop();
  void Clear();

  // Works for about that long, or until what was sought is known. False where there is nothing left to do.
  // Throws Error, and goes on where it was when it is called again.
  bool Work(int milliseconds);
  bool IsRunning() const;
  // Something was sought that is not known yet.
  bool IsSeeking() const { return sought_.wanted; }
  // Whether all rows were looked through.
  bool IsComplete() const { return stage_ == Stage::Done; }

  // Reads rows for the texts to come.
  bool IsPreparing() const { return preparing_; }

  const TextNeedle& Needle() const { return needle_; }
  // The rows that match, as far as is known.
  int Count() const { return placed_ ? places_.Count() : found_.Count(); }
  // The number of a row among those that match, from 1; 0 where it does not, or that is not known yet.
  int NumberOf(int row) const { return placed_ && places_.Has(row) ? places_.Before(row) + 1 : 0; }
  // The first column from the left whose text matches, as it is shown; -1 for none.
  int ColumnIn(int row) const;

 Q_SIGNALS:
  // There is work again: the rows are others.
  void Restarted();

 private:
  enum class Stage { None, Begin, Gather, Scan, Place, Done, Stopped };

  struct Column {
    bool lookup = false;
    int place = 0;        // among all columns that are looked through
    QSet<qint64> values;  // of a drop-down, whose texts match
  };
  // Keys to be read, with all columns for their signatures or with those that can match.
  struct Keys {
    std::vector<qint64> unread;
    std::vector<qint64> possible;

    std::size_t Count() const { return unread.size() + possible.size(); }
  };
  struct Sought {
    bool wanted = false;
    bool scanned = false;  // the first that the scan finds is it
    int from = 0;
    int step = 1;
    int next = 0;  // to be walked to
    int left = 0;
    int read = 0;  // of those that were walked to
  };

  void Renew(bool samePlaces);
  void RowsChanged(int first, int last);
  void Recheck(int row);
  void Begin();
  void ReadColumns();
  bool Gather();
  void BeginScan();
  void Scan();
  Keys NextKeys(std::size_t& block) const;
  void Choose(qint64 block, quint64 bits, Keys& keys) const;
  void PlaceRows();
  void Prepare();
  bool Walks() const;
  void WalkOn();
  void Resolve();
  void Arrive(int row);
  bool Matches(const RawRow& row, bool whole) const;
  std::vector<qint64> ReadMatches(const Keys& keys);

  const RecordsetModel& rows_;
  TextNeedle needle_;
  RowSignatures signatures_;
  RowSignatures::Signature wanted_{};  // the needle's
  Stage stage_ = Stage::None;
  std::optional<FieldReader> reader_;
  std::vector<Column> columns_;
  bool narrows_ = false;  // only what matched before can match

  int gathered_ = 0;            // rows, from the first
  KeyMarks members_;            // their keys
  bool ascending_ = false;      // the grid shows them by their keys
  std::vector<qint64> blocks_;  // of members_
  bool preparing_ = false;      // for other needles, where nothing else is to be done
  std::size_t prepared_ = 0;    // of blocks_

  KeyMarks candidates_;        // whose rows are looked through
  std::vector<qint64> order_;  // their blocks, as they are scanned
  qint64 startKey_ = 0;
  std::size_t block_ = 0;  // the next one of order_
  KeyMarks found_;

  int next_ = 0;  // row to be placed
  RowMarks placing_;
  RowMarks places_;
  bool placed_ = false;
  bool again_ = false;  // rows were changed while they are looked through

  Sought sought_;
  std::optional<Place> answer_;
};

}  // namespace vorlina
