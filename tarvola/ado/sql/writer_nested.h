#pragma once

#include "tarvola/ado/sql/writer.h"
#include "tarvola/runtime/error_texts.h"
#include "tarvola/runtime/errors.h"

namespace tarvola::ado::sql {

// An engine reads nested constructs on a stack of its own, of a hundred entries; each of ours takes up to four.
inline constexpr std::size_t deepestText = 20;

class Writer::Nested {
 public:
  explicit Nested(Writer& writer) : writer_(writer), qualified_(writer.qualified_) {
    if (writer.depth_ == deepestText) fail(ErrorNumber::Unspecified, queryTooComplexText());
    ++writer.depth_;
  }
  ~Nested() {
    --writer_.depth_;
    writer_.qualified_ = qualified_;
  }
  Nested(const Nested&) = delete;
  Nested& operator=(const Nested&) = delete;

 private:
  Writer& writer_;
  bool qualified_;
};

}  // namespace tarvola::ado::sql
