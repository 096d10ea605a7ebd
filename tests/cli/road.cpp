#include "tests/cli/road.h"

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

#include "tarvola/cli/commands.h"
#include "tarvola/runtime/code_page.h"
#include "tarvola/tarvola.h"

namespace tarvola::test {

namespace {

/// Words of a command line; quotes of either kind hold blanks together.
std::vector<std::string> wordsOf(const std::string& command) {
  std::vector<std::string> words;
  std::string word;
  char quote = 0;
  bool open = false;
  for (const char c : command) {
    if (quote != 0 ? c == quote : (c == '"' || c == '\'')) {
      quote = quote != 0 ? '\0' : c;
      open = true;
    } else if (c == ' ' && quote == 0) {
      if (open) words.push_back(word);
      word.clear();
      open = false;
    } else {
      word += c;
      open = true;
    }
  }
  if (open) words.push_back(word);
  return words;
}

std::string unescaped(const std::string& text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) {
      result += text[i];
      continue;
    }
    const char escape = text[++i];
    if (escape == 'x') {
      result += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
      i += 2;
    } else {
      result += escape == 'r' ? '\r' : escape == 'n' ? '\n' : escape;
    }
  }
  return result;
}

std::string readWhole(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return "no file " + path + "\n";
  return {std::istreambuf_iterator<char>(file), {}};
}

void writeTo(const std::string& path, const std::string& text, std::ios::openmode mode) {
  std::ofstream file(path, std::ios::binary | mode);
  // Escapes stand for bytes, of whatever code page.
  file << unescaped(toAnsi(text));
}

std::string withUnixLineEnds(const std::string& text) { return Replace(text, "\r\n", "\n"); }

std::string rowsOf(const std::string& statement) {
  CGeneralClass general;
  const RecordsetPtr rows = general.pGetRecordDbase(statement);
  if (rows == nullptr) return "failed\n";
  if (rows->get_State() == adStateClosed || rows->get_EOF()) return "";
  return rows->GetString(adClipString, -1, "|", "\n", "Null");
}

}  // namespace

std::vector<Step> readRoad(const std::string& path) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error("no road at " + path);
  std::vector<Step> steps;
  std::string line;
  for (int number = 1; std::getline(file, line); ++number) {
    if (line.rfind("$ ", 0) == 0)
      steps.push_back({line.substr(2), "", number});
    else if (!line.empty() && line[0] != '#' && !steps.empty())
      steps.back().expected += line + "\n";
  }
  return steps;
}

Walker::~Walker() {
  for (const std::string& name : variables_) unsetenv(name.c_str());
}

std::string Walker::runTool(std::vector<std::string> words) {
  words.erase(words.begin());
  std::ostringstream out;
  std::istringstream typed(answers_.value_or(""));
  const cli::Terminal terminal{.input = answers_ ? &typed : nullptr, .width = width_};
  answers_.reset();
  width_ = 0;
  const int code = cli::run(words, out, out, terminal);
  return out.str() + (code == 0 ? "" : "[exit " + std::to_string(code) + "]\n");
}

void Walker::setVariable(const std::string& assignment) {
  const std::size_t sign = assignment.find('=');
  variables_.push_back(assignment.substr(0, sign));
  setenv(variables_.back().c_str(), assignment.substr(sign + 1).c_str(), 1);
}

std::string Walker::run(const std::string& command) {
  const std::vector<std::string> words = wordsOf(command);
  const std::string& verb = words[0];
  if (verb == "tarvola") return runTool(words);
  if (verb == "cat") return withUnixLineEnds(fromAnsi(readWhole(words[1])));
  if (verb == "sql") return rowsOf(words[1]);
  if (verb == "write") return writeTo(words[1], words[2], std::ios::trunc), "";
  if (verb == "append") return writeTo(words[1], words[2], std::ios::app), "";
  if (verb == "folder") return std::filesystem::create_directory(words[1]) ? "" : "no folder made\n";
  if (verb == "export") return setVariable(words[1]), "";
  if (verb == "answer") return answers_ = unescaped(words[1]), "";
  if (verb == "width") return width_ = std::stoul(words[1]), "";
  return "unknown command " + verb + "\n";
}

}  // namespace tarvola::test
