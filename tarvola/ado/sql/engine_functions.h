#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "tarvola/runtime/variant.h"

namespace tarvola::ado::sql {

/// A function that compiled texts call and that an engine does not have by itself: the meaning is the platform's, under
/// the regional settings, so that Val and Format say the same inside a statement as outside.
///
/// An engine makes all of them known to itself. It hands over texts, whole numbers (Long), other numbers (Double) and
/// Null, dates as their ISO text; a result of type Date goes back as its ISO text.
struct EngineFunction {
  std::string_view name;
  std::size_t argumentCount;
  bool isConstant;  // gives the same for the same arguments
  Variant (*call)(std::span<const Variant> arguments);

  /// Null if any argument is Null. Fails as the function of the platform does; a text that cannot be read as the number
  /// or date that is wanted: error -2147217913 "Data type mismatch in criteria expression."
  [[nodiscard]] Variant operator()(std::span<const Variant> arguments) const;
};

/// All functions of the kind, the fold function of EngineDialect among them.
std::span<const EngineFunction> engineFunctions() noexcept;

/// Which of the values of a group an aggregate keeps. Without a row it gives Null.
enum class KeptValue : std::uint8_t {
  First,  ///< that of the row that comes first
  Last,   ///< that of the row that comes last
  Only,   ///< that of the only row; a second one: "At most one record can be returned by this subquery."
};

/// An aggregate of one argument that compiled texts call and that an engine does not have by itself.
struct EngineAggregate {
  std::string_view name;
  KeptValue keeps;
};

std::span<const EngineAggregate> engineAggregates() noexcept;

}  // namespace tarvola::ado::sql
