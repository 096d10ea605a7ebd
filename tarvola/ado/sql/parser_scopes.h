#pragma once

#include "tarvola/ado/sql/parser.h"
#include "tarvola/runtime/error_texts.h"
#include "tarvola/runtime/errors.h"

namespace tarvola::ado::sql {

// Deep enough for any statement that a person or a program writes, and far from the end of the stack.
inline constexpr std::size_t deepestNesting = 100;
// An engine reads a chain of operators as a tree, whose height is bounded there.
inline constexpr std::size_t longestChain = 500;

[[noreturn]] inline void failTooComplex() { fail(ErrorNumber::Unspecified, queryTooComplexText()); }
[[noreturn]] inline void failSyntax(std::string description) { fail(ErrorNumber::SyntaxError, std::move(description)); }

class Parser::Nesting {
 public:
  explicit Nesting(Parser& parser) : depth_(parser.depth_) {
    if (depth_ == deepestNesting) failTooComplex();
    ++depth_;
  }
  ~Nesting() { --depth_; }
  Nesting(const Nesting&) = delete;
  Nesting& operator=(const Nesting&) = delete;

 private:
  std::size_t& depth_;
};

class Parser::EchoScope {
 public:
  EchoScope(Parser& parser, Echo shown) : parser_(parser), echo_(parser.echo_), from_(parser.echoFrom_) {
    parser.echo_ = shown;
    parser.echoFrom_ = parser.at_;
  }
  ~EchoScope() {
    parser_.echo_ = echo_;
    parser_.echoFrom_ = from_;
  }
  EchoScope(const EchoScope&) = delete;
  EchoScope& operator=(const EchoScope&) = delete;

 private:
  Parser& parser_;
  Echo echo_;
  std::size_t from_;
};

}  // namespace tarvola::ado::sql
