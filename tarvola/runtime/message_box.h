#pragma once

#include <functional>
#include <string>

namespace tarvola {

enum class MessageIcon { None, Information, Critical };

struct MessageBox {
  std::string text;
  std::string title;
  MessageIcon icon = MessageIcon::None;
};

/// Shows a message to the person at the screen. It may not throw and should not wait longer than the person does;
/// the operation that shows it goes on when it returns.
using MessageBoxHandler = std::function<void(const MessageBox&)>;

/// Sets what shows messages, for all threads. An empty handler sends the text to standard error.
void setMessageBoxHandler(MessageBoxHandler handler);

/// Shows a message through the handler. Never throws.
void showMessage(const MessageBox& message) noexcept;

/// Collects the messages of a scope instead of showing them.
class MessageBoxScope {
 public:
  explicit MessageBoxScope(MessageBoxHandler handler);
  ~MessageBoxScope();
  MessageBoxScope(const MessageBoxScope&) = delete;
  MessageBoxScope& operator=(const MessageBoxScope&) = delete;

 private:
  MessageBoxHandler before_;
};

}  // namespace tarvola
