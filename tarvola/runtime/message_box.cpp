#include "tarvola/runtime/message_box.h"

#include <cstdio>
#include <utility>

#include "tarvola/runtime/shared_handler.h"

namespace tarvola {
namespace {

SharedHandler<MessageBoxHandler>& current() {
  static SharedHandler<MessageBoxHandler> handler;
  return handler;
}

void writeToStandardError(const MessageBox& message) noexcept {
  // Nothing can be done for a reader whose standard error is closed.
  if (message.title.empty()) {
    (void)std::fprintf(stderr, "%s\n", message.text.c_str());
  } else {
    (void)std::fprintf(stderr, "%s: %s\n", message.title.c_str(), message.text.c_str());
  }
}

}  // namespace

void setMessageBoxHandler(MessageBoxHandler handler) { current().exchange(std::move(handler)); }

void showMessage(const MessageBox& message) noexcept {
  try {
    if (const auto handler = current().get()) return (*handler)(message);
  } catch (...) {
    // A handler that fails must not take the message with it.
  }
  writeToStandardError(message);
}

MessageBoxScope::MessageBoxScope(MessageBoxHandler handler) : before_(current().exchange(std::move(handler))) {}
MessageBoxScope::~MessageBoxScope() { current().exchange(std::move(before_)); }

}  // namespace tarvola
