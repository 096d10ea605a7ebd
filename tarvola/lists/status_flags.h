#pragma once

namespace tarvola::lists {

/// What a caller is doing with a document, by which a change is counted. The first flag that is set wins: a document
/// that is marked as added or edited counts as such even if it is marked as deleted as well.
struct StatusFlags {
  bool add = false;
  bool edit = false;
  bool remove = false;

  [[nodiscard]] constexpr bool addsOrEdits() const noexcept { return add || edit; }
  [[nodiscard]] constexpr bool onlyRemoves() const noexcept { return remove && !addsOrEdits(); }
};

}  // namespace tarvola::lists
