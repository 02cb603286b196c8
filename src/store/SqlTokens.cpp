#include "store/SqlTokens.h"

namespace vorlina {
namespace {

bool IsWordCharacter(QChar c) { return c.isLetterOrNumber() || c == u'_' || c == u'$' || c.unicode() > 0x7f; }

class Tokenizer {
 public:
  explicit Tokenizer(const QString& sql) : sql_(sql) {}

  std::vector<SqlToken> All() {
    while (SkipBlanks()) Take();
    return std::move(tokens_);
  }

 private:
  QChar At(qsizetype i) const { return i < sql_.size() ? sql_[i] : QChar(); }

  bool SkipBlanks() {
    for (;;) {
      if (At(at_).isSpace()) {
        ++at_;
      } else if (At(at_) == u'-' && At(at_ + 1) == u'-') {
        const qsizetype end = sql_.indexOf(u'\n', at_);
        at_ = end < 0 ? sql_.size() : end;
      } else if (At(at_) == u'/' && At(at_ + 1) == u'*') {
        const qsizetype end = sql_.indexOf(u"*/"_qs, at_ + 2);
        at_ = end < 0 ? sql_.size() : end + 2;
      } else {
        return at_ < sql_.size();
      }
    }
  }

  void Take() {
    const QChar c = sql_[at_];
    if (c == u'\'') return TakeQuoted(c, SqlToken::Kind::Text);
    if (c == u'"' || c == u'`') return TakeQuoted(c, SqlToken::Kind::Name);
    if (c == u'[') return TakeQuoted(u']', SqlToken::Kind::Name);
    const qsizetype begin = at_;
    while (IsWordCharacter(At(at_)) || (c.isDigit() && At(at_) == u'.')) ++at_;
    if (at_ > begin) return Add(c.isDigit() ? SqlToken::Kind::Number : SqlToken::Kind::Word, begin);
    ++at_;
    if ((c == u'<' && (At(at_) == u'=' || At(at_) == u'>')) || (c == u'>' && At(at_) == u'=')) ++at_;
    if (c == u')') --depth_;
    Add(SqlToken::Kind::Sign, begin);
    if (c == u'(') ++depth_;
  }

  void Add(SqlToken::Kind kind, qsizetype begin) {
    tokens_.push_back({kind, sql_.mid(begin, at_ - begin), begin, at_, depth_});
  }

  // A doubled quote stands for itself, except in brackets.
  void TakeQuoted(QChar quote, SqlToken::Kind kind) {
    const qsizetype begin = at_++;
    QString text;
    while (at_ < sql_.size()) {
      const QChar c = sql_[at_++];
      if (c == quote) {
        if (quote == u']' || At(at_) != quote) break;
        ++at_;
      }
      text += c;
    }
    tokens_.push_back({kind, text, begin, at_, depth_});
  }

  const QString& sql_;
  qsizetype at_ = 0;
  int depth_ = 0;
  std::vector<SqlToken> tokens_;
};

}  // namespace

std::vector<SqlToken> SqlTokens(const QString& sql) { return Tokenizer(sql).All(); }

}  // namespace vorlina
