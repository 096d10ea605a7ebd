#include "tarvola/ado/engine/lock_patience.h"

namespace tarvola::ado::engine {
namespace {

thread_local std::chrono::milliseconds patienceOfThread{10'000};

}  // namespace

std::chrono::milliseconds lockPatience() noexcept { return patienceOfThread; }
void setLockPatience(std::chrono::milliseconds patience) noexcept { patienceOfThread = patience; }

}  // namespace tarvola::ado::engine
