#include "tarvola/ado/shape.h"

#include "tarvola/ado/text_signs.h"
#include "tarvola/runtime/error_texts.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::ado {
namespace {

constexpr std::string_view blanks = " \t\r\n";
/// What ends a name or keyword that stands without quotes.
constexpr std::string_view wordEnds = " \t\r\n(){},;";

class ShapeReader {
 public:
  explicit ShapeReader(std::string_view text) : rest_(text) {}

  ShapeCommand read() {
    expectWord("SHAPE");
    ShapeCommand command{.statement = readStatement(), .children = {}};
    skipAlias("APPEND");
    if (takeWord("APPEND")) readChildren(command.children);
    takeSign(';');
    if (peek() != '\0') refuse("Nothing may follow the last chapter.");
    return command;
  }

 private:
  [[noreturn]] static void refuse(std::string_view reason) { fail(ErrorNumber::SyntaxError, shapeSyntaxText(reason)); }

  void skipBlanks() {
    while (!rest_.empty() && isBlank(rest_.front())) rest_.remove_prefix(1);
  }

  /// The next character that is no blank, 0 at the end.
  char peek() {
    skipBlanks();
    return rest_.empty() ? '\0' : rest_.front();
  }

  bool takeSign(char sign) {
    if (peek() != sign) return false;
    rest_.remove_prefix(1);
    return true;
  }

  std::string_view peekWord() {
    skipBlanks();
    return rest_.substr(0, rest_.find_first_of(wordEnds));
  }

  bool isWordNext(std::string_view word) { return equalsIgnoreCase(peekWord(), word); }

  bool takeWord(std::string_view word) {
    if (!isWordNext(word)) return false;
    rest_.remove_prefix(word.size());
    return true;
  }

  void expectWord(std::string_view word) {
    if (!takeWord(word)) refuse(std::string(word) + " is missing.");
  }

  std::string_view readStatement() {
    if (!takeSign('{')) refuse("A statement must stand in braces.");
    const std::size_t end = findBrace();
    const std::string_view statement = rest_.substr(0, end);
    rest_.remove_prefix(end + 1);
    return statement;
  }

  /// The closing brace, passing over quoted texts.
  [[nodiscard]] std::size_t findBrace() const {
    std::size_t place = 0;
    while (place < rest_.size() && rest_[place] != '}') {
      const char sign = rest_[place];
      if (sign == '\'' || sign == '"') place = rest_.find(sign, place + 1);
      if (place == std::string_view::npos) break;
      ++place;
    }
    if (place >= rest_.size()) refuse("A closing brace is missing.");
    return place;
  }

  std::string_view readName() {
    const char first = peek();
    if (first == '"' || first == '\'') return readQuotedName(first);
    if (first == '[') return readQuotedName(']');
    const std::string_view name = peekWord();
    if (name.empty()) refuse("A name is missing.");
    rest_.remove_prefix(name.size());
    return name;
  }

  std::string_view readQuotedName(char closing) {
    const std::size_t end = rest_.find(closing, 1);
    if (end == std::string_view::npos || end == 1) refuse("A name is not closed or empty.");
    const std::string_view name = rest_.substr(1, end - 1);
    rest_.remove_prefix(end + 1);
    return name;
  }

  [[nodiscard]] bool isNameNext() {
    const char next = peek();
    return next != '\0' && (next == '[' || wordEnds.find(next) == std::string_view::npos);
  }

  /// An alias in front of a keyword names nothing that can be asked for.
  void skipAlias(std::string_view keyword) {
    if (takeWord("AS") || (isNameNext() && !isWordNext(keyword))) readName();
  }

  void readChildren(std::vector<ShapeChildText>& children) {
    do {
      ShapeChildText& child = children.emplace_back();
      readChild(child);
      const bool isNamed = takeWord("AS") || isNameNext();
      child.name = isNamed ? std::string(readName()) : "Chapter" + std::to_string(children.size());
    } while (takeSign(','));
  }

  void readChild(ShapeChildText& child) {
    if (!takeSign('(')) refuse("A chapter must stand in parentheses.");
    if (isWordNext("SHAPE")) refuse("A SHAPE within a SHAPE is not supported.");
    child.statement = readStatement();
    skipAlias("RELATE");
    expectWord("RELATE");
    do {
      child.relation.push_back(readRelation());
    } while (takeSign(','));
    if (!takeSign(')')) refuse("A closing parenthesis is missing.");
  }

  ShapeRelationText readRelation() {
    const std::string_view parentColumn = readName();
    expectWord("TO");
    return {.parentColumn = parentColumn, .childColumn = readName()};
  }

  std::string_view rest_;
};

}  // namespace

bool isShapeCommand(std::string_view text) noexcept {
  const std::size_t start = text.find_first_not_of(blanks);
  if (start == std::string_view::npos) return false;
  const std::string_view command = text.substr(start);
  const std::size_t length = std::string_view("SHAPE").size();
  const bool endsThere = command.size() <= length || isBlank(command[length]) || command[length] == '{';
  return endsThere && equalsIgnoreCase(command.substr(0, length), "SHAPE");
}

ShapeCommand readShapeCommand(std::string_view text) { return ShapeReader(text).read(); }

}  // namespace tarvola::ado
