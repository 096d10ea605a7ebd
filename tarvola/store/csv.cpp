#include "tarvola/store/csv.h"

namespace tarvola::store {
namespace {

class CsvReader {
 public:
  explicit CsvReader(std::string_view text) : text_(text) {}

  std::vector<std::vector<std::string>> read() {
    std::vector<std::vector<std::string>> lines;
    while (at_ < text_.size()) {
      if (endOfLine()) {
        skipEndOfLine();
        continue;
      }
      lines.push_back(line());
    }
    return lines;
  }

 private:
  [[nodiscard]] bool isAt(char character) const { return at_ < text_.size() && text_[at_] == character; }
  [[nodiscard]] bool endOfLine() const {
    return at_ >= text_.size() || text_.substr(at_).starts_with("\r\n") || isAt('\n');
  }
  void skipEndOfLine() { at_ += isAt('\r') ? 2U : 1U; }

  std::vector<std::string> line() {
    std::vector<std::string> fields{field()};
    while (isAt(',')) {
      ++at_;
      fields.push_back(field());
    }
    return fields;
  }

  std::string field() {
    std::string value;
    while (!endOfLine() && !isAt(',')) {
      if (isAt('"')) {
        quoted(value);
      } else {
        value += text_[at_++];
      }
    }
    return value;
  }

  void quoted(std::string& value) {
    ++at_;
    while (at_ < text_.size()) {
      const char character = text_[at_++];
      if (character == '"' && !isAt('"')) return;
      if (character == '"') ++at_;
      value += character;
    }
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

}  // namespace

std::vector<std::vector<std::string>> readCsv(std::string_view text) { return CsvReader(text).read(); }

}  // namespace tarvola::store
