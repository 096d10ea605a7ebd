#include "tarvola/ado/engine/engines.h"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_map>

#include "tarvola/ado/engine/sqlite/session.h"
#include "tarvola/runtime/error_texts.h"
#include "tarvola/runtime/errors.h"

namespace tarvola::ado {
namespace engine {
namespace {

constexpr std::array table{
    Engine{.name = "embedded", .serves = sqlite::servesDataSource, .open = sqlite::openSession},
};

std::shared_ptr<Session> openAnew(std::string_view connectionText) {
  const ConnectionText text = readConnectionText(connectionText);
  const auto found = std::ranges::find_if(engines(), [&](const Engine& engine) { return engine.serves(text); });
  if (found == engines().end()) fail(ErrorNumber::Unspecified, unknownDataSourceText());
  return found->open(text);
}

struct TextHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const noexcept { return std::hash<std::string_view>()(text); }
};

using SharedSessions = std::unordered_map<std::string, std::weak_ptr<Session>, TextHash, std::equal_to<>>;

}  // namespace

std::span<const Engine> engines() noexcept { return table; }

}  // namespace engine

// The map holds no session alive: a handle closes with the last connection on it.
std::shared_ptr<Session> Session::open(std::string_view connectionText) {
  thread_local engine::SharedSessions sessions;
  const auto known = sessions.find(connectionText);
  if (known != sessions.end()) {
    if (auto session = known->second.lock()) return session;
  }
  auto session = engine::openAnew(connectionText);
  std::erase_if(sessions, [](const auto& entry) { return entry.second.expired(); });
  sessions.insert_or_assign(std::string(connectionText), session);
  return session;
}

}  // namespace tarvola::ado
