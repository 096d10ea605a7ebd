#pragma once

#include <optional>

#include "tarvola/runtime/date.h"

namespace tarvola {

/// Today at midnight, by the local calendar or by the clock that was set.
Date today();

/// Stops the clock of the whole process at a day, or lets it run again. For tests and for reports of a past day.
void setToday(std::optional<Date> day) noexcept;

}  // namespace tarvola
