#pragma once

#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

namespace tarvola {

/// Something that happens to an object and that others may want to hear of. Handlers are called in the
/// order in which they connected; one that connects or leaves while an event runs counts from the next one on.
template <class... Arguments>
class Event {
 public:
  using Handler = std::function<void(Arguments...)>;
  using Token = std::size_t;

  Token connect(Handler handler) {
    handlers_.emplace_back(++lastToken_, std::move(handler));
    return lastToken_;
  }

  void disconnect(Token token) {
    std::erase_if(handlers_, [token](const auto& entry) { return entry.first == token; });
  }

  [[nodiscard]] bool empty() const noexcept { return handlers_.empty(); }

  void operator()(Arguments... arguments) const {
    if (handlers_.empty()) return;
    const auto now = handlers_;
    for (const auto& [token, handler] : now) handler(arguments...);
  }

 private:
  std::vector<std::pair<Token, Handler>> handlers_;
  Token lastToken_ = 0;
};

}  // namespace tarvola
