// Tells of most rows that a text is not in them, without reading them: a row that was read has left some
// bits, in which every three letters that follow each other in its texts are marked. Rows that have all marks
// of a text have to be read to know.
//
// It holds for the database as it was when the rows were read: once anybody has written all is forgotten.
#pragma once

#include <QHash>
#include <QList>
#include <array>
#include <memory>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/TextFolding.h"
#include "grid/KeyMarks.h"
#include "store/FieldReader.h"

namespace vorlina {

class RecordsetModel;

class RowSignatures {
 public:
  // Wide enough for some hundred letters in a row.
  using Signature = std::array<quint64, 4>;

  // Of the keys of a block, a bit each: those that have to be read to know, as they were not read yet, and
  // as the text may be in them.
  struct Outlook {
    quint64 unread = 0;
    quint64 possible = 0;
  };

  // The marks of what a text is looked for by. A short one has none, so that it may be anywhere.
  static Signature Of(const TextNeedle& needle);
  static void Mark(std::string_view utf8, Signature& signature);

  // Of these columns; what is known of the same ones is kept. Drop-downs count with the texts they offer:
  // with others it is to be closed before.
  void Open(const RecordsetModel& rows, const QList<int>& columns);
  void Close() { *this = {}; }
  bool IsOpen() const { return reader_.has_value(); }
  // To be called before a look. True where all was forgotten, as somebody has written. Throws Error.
  bool Renew();
  // Where it is not open, all keys are possible.
  Outlook Look(qint64 block, quint64 bits, const Signature& wanted) const;
  // As FieldReader::Read, with the columns it was opened with. Keeps in mind what is read.
  void Read(const std::vector<qint64>& keys, const FieldReader::Visit& visit);

 private:
  struct Block {
    quint64 read = 0;
    std::array<Signature, std::size_t(1) << KeyMarks::KeyBits> rows{};
  };
  struct Column {
    bool lookup = false;
    QHash<qint64, Signature> offered;  // by the values of a drop-down
  };

  void Keep(const RawRow& row);

  QList<int> opened_;
  std::vector<Column> columns_;
  std::optional<FieldReader> reader_;
  std::optional<qint64> mark_;  // of the database; none where what is read may be taken back
  std::unordered_map<qint64, std::unique_ptr<Block>> blocks_;
};

}  // namespace vorlina
