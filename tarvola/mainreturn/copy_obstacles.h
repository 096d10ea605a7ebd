#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/mainreturn/return_copy.h"

namespace tarvola {

/// Why a return cannot be copied as it stands.
enum class CopyObstacleKind : std::uint8_t {
  /// A text with an apostrophe, which no statement can hold: the copy would end there.
  Apostrophe,
  /// Nothing in a column by which the copy finds its rows anew: it would end there.
  MissingValue,
  /// Two different rows that the copy cannot tell apart: both would become the first of them.
  SameKey,
  /// A document under another number than the one that is moved: it would be left behind.
  OtherFiler,
  /// A document under another number in the target, which the copy does not clear: it would stand beside the new ones.
  OtherFilerInTarget,
};

/// A row that stands in the way of a copy.
struct CopyObstacle {
  CopyObstacleKind kind = CopyObstacleKind::Apostrophe;
  std::string table;
  /// KD_FORM; "" in a table without.
  std::string form;
  /// The number of the slip or payment.
  std::string number;
  /// The field of the packed text, or the column.
  std::string field;
  /// What it holds.
  std::string value;
};

}  // namespace tarvola

namespace tarvola::mainreturn {

/// Looks through all that a copy would read, and through what it would leave in the target. Nothing is changed. An
/// empty result means that no row as such can end the copy or get lost in it.
std::vector<CopyObstacle> findCopyObstacles(const store::StoreObject& store, const ReturnCopy& copy);

}  // namespace tarvola::mainreturn
