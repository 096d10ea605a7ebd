#pragma once

#include <string>
#include <vector>

#include "tarvola/runtime/message_box.h"

namespace tarvola::test {

/// Collects the message boxes of a scope instead of showing them.
class CapturedMessages {
 public:
  CapturedMessages() : scope_([this](const MessageBox& box) { boxes_.push_back(box); }) {}

  [[nodiscard]] const std::vector<MessageBox>& boxes() const noexcept { return boxes_; }
  [[nodiscard]] bool empty() const noexcept { return boxes_.empty(); }
  void clear() noexcept { boxes_.clear(); }

  /// The texts alone, in the order in which they were shown.
  [[nodiscard]] std::vector<std::string> texts() const {
    std::vector<std::string> texts;
    for (const MessageBox& box : boxes_) texts.push_back(box.text);
    return texts;
  }

 private:
  std::vector<MessageBox> boxes_;
  MessageBoxScope scope_;
};

}  // namespace tarvola::test
