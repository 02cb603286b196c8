// A text to be found in others without regard to letter case and accents: "CAFFE" is in "Un caffè".
#pragma once

#include <QString>
#include <QVarLengthArray>
#include <string>
#include <string_view>
#include <vector>

namespace vorlina {

using FoldedUnits = QVarLengthArray<char16_t, 512>;

// Appends the units of a text as all that compares by TextNeedle sees them.
void FoldText(std::string_view utf8, FoldedUnits& units);

class TextNeedle {
 public:
  // A part of a text, in its units.
  struct Piece {
    qsizetype start = 0;
    qsizetype length = 0;

    bool operator==(const Piece&) const = default;
  };

  TextNeedle() = default;
  explicit TextNeedle(const QString& text);

  // Found nowhere: no text, or one of accents alone.
  bool IsEmpty() const { return folded_.empty(); }
  // A text that holds this one holds these units one after the other when it is folded, and the other way
  // round.
  const std::u16string& Folded() const { return folded_; }
  // Whatever this one is in, the other one is in as well.
  bool Includes(const TextNeedle& other) const;
  // Whether a number's digits may hold it.
  bool IsOfNumbers() const;
  // Texts of ASCII alone, which nearly all are, are compared as they are.
  bool IsIn(std::string_view utf8) const;
  bool IsIn(const QString& text) const;
  // Where it stands in a text, from the left, none within another.
  std::vector<Piece> PiecesIn(const QString& text) const;

 private:
  std::u16string folded_;
  std::string ascii_;  // the same, empty where it has other characters
};

}  // namespace vorlina
