#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "tarvola/ado/engine/connection_text.h"
#include "tarvola/ado/engine/session.h"

namespace tarvola::ado::engine {

/// A kind of store: which connection texts it serves, and how it opens one. A further engine is a further row in
/// engines.cpp and a folder beside this file.
struct Engine {
  std::string_view name;
  bool (*serves)(const ConnectionText& text);
  std::shared_ptr<Session> (*open)(const ConnectionText& text);
};

/// The engines in the order in which they are asked.
std::span<const Engine> engines() noexcept;

}  // namespace tarvola::ado::engine
