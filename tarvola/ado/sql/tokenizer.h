#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tarvola::ado::sql {

enum class TokenKind : std::uint8_t {
  Word,      // a bare name or a word of the language
  Name,      // a name in brackets, back-quotes or double quotes
  Text,      // '...'
  Number,    // 4, 1.5, 1E+15
  Date,      // #...#
  Sign,      // an operator or a mark of punctuation
  OpenText,  // a quote that nothing closes; it runs to the end of the statement
  OpenDate,  // likewise
  OpenName,  // likewise
  Foreign,   // a character that no statement holds
  End,       // behind the last token
};

struct Token {
  TokenKind kind = TokenKind::End;
  /// As it stands in the statement.
  std::string_view source;
  /// Of a name or a literal: without its signs. Of others: as it stands.
  std::string_view text;
  /// Of a literal: its number among the literals of the statement.
  std::size_t literal = 0;
};

/// All tokens of a statement, an End behind them. Never fails: what cannot be read is a token of its own kind, so that
/// the grammar meets it in its place.
std::vector<Token> tokenize(std::string_view statement);

}  // namespace tarvola::ado::sql
