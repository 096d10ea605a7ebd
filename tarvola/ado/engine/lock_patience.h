#pragma once

#include <chrono>

namespace tarvola::ado::engine {

/// How long a statement of this thread waits for a store that another one is writing to, before it fails with the text
/// of a file in use. Ten seconds until set; taken up by the handles that are opened afterwards.
std::chrono::milliseconds lockPatience() noexcept;
void setLockPatience(std::chrono::milliseconds patience) noexcept;

}  // namespace tarvola::ado::engine
