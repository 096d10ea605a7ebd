#include "tarvola/ado/sql/compile.h"
#include "tarvola/ado/sql/parser.h"
#include "tarvola/ado/sql/scan.h"

namespace tarvola::ado::sql {
namespace {

// What stands in a key for a literal. No statement holds control characters, so a key cannot be forged; one that does
// hold them gets the last mark for each and never compiles.
constexpr char textMark = '\x01';
constexpr char numberMark = '\x02';
constexpr char dateMark = '\x03';
// A text with letters beyond ASCII is compared in another way, so it belongs to another shape.
constexpr char foldedTextMark = '\x04';
constexpr char foreignMark = '\x05';

/// Walks over a statement once and writes the key behind itself. The key is never longer than the statement.
class ShapeReader {
 public:
  ShapeReader(std::string_view statement, Shape& shape)
      : statement_(statement), at_(statement.data()), end_(at_ + statement.size()), copied_(at_), shape_(shape) {
    shape_.literals.clear();
    shape_.key.resize(statement.size());
    out_ = shape_.key.data();
  }

  void read() {
    for (skipPlain(); at_ != end_; skipPlain()) step();
    copyUpTo(end_);
    shape_.key.resize(static_cast<std::size_t>(out_ - shape_.key.data()));
  }

 private:
  // Most of a statement is names and signs, which stay as they are: this loop is where the time goes.
  void skipPlain() {
    const char* at = at_;
    while (at != end_ && classOf(*at) <= CharacterClass::Word) ++at;
    at_ = at;
  }

  void step() {
    switch (classOf(*at_)) {
      case CharacterClass::Plain:
      case CharacterClass::Word:
        return;
      case CharacterClass::Digit:
        return digit();
      case CharacterClass::Quote:
        return text();
      case CharacterClass::Hash:
        return date();
      case CharacterClass::Name:
        return name();
      case CharacterClass::Foreign:
        return replace(at_, at_ + 1, foreignMark);
    }
  }

  // Digits inside a name (Total_Bruto1, D113210) belong to the name.
  void digit() {
    const char* begin = statement_.data();
    if (at_ != begin && at_ != copied_ && isPartOfWord(at_[-1])) {
      at_ = wordEnd(at_, end_);
      return;
    }
    const char* from = at_;
    if (from != copied_ && from[-1] == '.' && pointBeginsNumber(begin, from - 1, end_)) --from;
    const char* behind = numberEnd(from, end_);
    take(LiteralKind::Number, from, behind, behind, from, numberMark);
  }

  void text() {
    const char* closing = closingQuote(at_, end_);
    if (closing == nullptr) failToRead(statement_);
    const char mark = isBeyondAscii(at_ + 1, closing) ? foldedTextMark : textMark;
    take(LiteralKind::Text, at_ + 1, closing, closing + 1, at_, mark);
  }

  void date() {
    const char* closing = closingHash(at_, end_);
    if (closing == nullptr) failToRead(statement_);
    take(LiteralKind::Date, at_ + 1, closing, closing + 1, at_, dateMark);
  }

  // Inside a query in brackets there are literals.
  void name() {
    const char* closing = isQueryInBrackets(at_, end_) ? at_ : closingBracket(at_, end_);
    at_ = closing == nullptr ? end_ : closing + 1;
  }

  void take(LiteralKind kind, const char* first, const char* last, const char* behind, const char* from, char mark) {
    shape_.literals.push_back({kind, {first, static_cast<std::size_t>(last - first)}});
    replace(from, behind, mark);
  }

  void replace(const char* from, const char* behind, char mark) {
    copyUpTo(from);
    *out_++ = mark;
    at_ = copied_ = behind;
  }

  void copyUpTo(const char* to) {
    const auto length = static_cast<std::size_t>(to - copied_);
    std::memcpy(out_, copied_, length);
    out_ += length;
  }

  std::string_view statement_;
  const char* at_;
  const char* end_;
  const char* copied_;  // what stands before it is in the key already
  Shape& shape_;
  char* out_;
};

}  // namespace

void readShape(std::string_view statement, Shape& shape) { ShapeReader(statement, shape).read(); }

}  // namespace tarvola::ado::sql
