#include "tarvola/ado/sql/tokenizer.h"

#include <algorithm>

#include "tarvola/ado/sql/scan.h"

namespace tarvola::ado::sql {
namespace {

class Tokenizer {
 public:
  explicit Tokenizer(std::string_view statement)
      : begin_(statement.data()), at_(begin_), end_(begin_ + statement.size()) {}

  std::vector<Token> all() {
    std::vector<Token> tokens;
    for (skipBlanks(); at_ != end_; skipBlanks()) tokens.push_back(next());
    const std::string_view end(end_, static_cast<std::size_t>(end_ - at_));
    tokens.push_back({TokenKind::End, end, end, 0});
    return tokens;
  }

 private:
  void skipBlanks() {
    while (at_ != end_ && isBlank(*at_)) ++at_;
  }

  Token next() {
    switch (classOf(*at_)) {
      case CharacterClass::Word:
        return plain(TokenKind::Word, wordEnd(at_, end_));
      case CharacterClass::Digit:
        return number();
      case CharacterClass::Quote:
        return fenced(closingQuote(at_, end_), TokenKind::Text, TokenKind::OpenText);
      case CharacterClass::Hash:
        return fenced(closingHash(at_, end_), TokenKind::Date, TokenKind::OpenDate);
      case CharacterClass::Name:
        if (isQueryInBrackets(at_, end_)) return plain(TokenKind::Sign, at_ + 1);
        return fenced(closingBracket(at_, end_), TokenKind::Name, TokenKind::OpenName);
      case CharacterClass::Foreign:
        return plain(TokenKind::Foreign, at_ + 1);
      case CharacterClass::Plain:
        break;
    }
    return pointBegins() ? number() : plain(TokenKind::Sign, at_ + signLength());
  }

  [[nodiscard]] bool pointBegins() const { return *at_ == '.' && pointBeginsNumber(begin_, at_, end_); }

  [[nodiscard]] std::size_t signLength() const {
    const std::string_view two(at_, end_ - at_ >= 2 ? 2 : 1);
    return two == "<=" || two == ">=" || two == "<>" ? 2 : 1;
  }

  Token number() {
    Token token = plain(TokenKind::Number, numberEnd(at_, end_));
    token.literal = literals_++;
    return token;
  }

  Token plain(TokenKind kind, const char* behind) {
    const std::string_view source(at_, static_cast<std::size_t>(behind - at_));
    at_ = behind;
    return {kind, source, source, 0};
  }

  Token fenced(const char* closing, TokenKind closed, TokenKind open) {
    if (closing == nullptr) return plain(open, end_);
    Token token = plain(closed, closing + 1);
    token.text = token.source.substr(1, token.source.size() - 2);
    if (closed != TokenKind::Name) {
      token.literal = literals_++;
    } else if (std::ranges::any_of(token.text, isForeign)) {
      token.kind = TokenKind::Foreign;
    }
    return token;
  }

  // A name goes into the engine's text, where a control character could end it.
  static bool isForeign(char character) { return classOf(character) == CharacterClass::Foreign; }

  const char* begin_;
  const char* at_;
  const char* end_;
  std::size_t literals_ = 0;
};

}  // namespace

std::vector<Token> tokenize(std::string_view statement) { return Tokenizer(statement).all(); }

}  // namespace tarvola::ado::sql
