#include "tarvola/ado/columns.h"

#include "tarvola/runtime/text_forms.h"

namespace tarvola::ado {

Columns::Columns(std::vector<Column> columns) : columns_(std::move(columns)) {
  places_.reserve(columns_.size());
  // Two columns of one name: the name finds the first, and try_emplace keeps it.
  for (std::size_t place = 0; place < columns_.size(); ++place) places_.try_emplace(columns_[place].name, place);
}

std::optional<std::size_t> Columns::find(std::string_view name) const noexcept {
  const auto found = places_.find(name);
  if (found == places_.end()) return std::nullopt;
  return found->second;
}

// Letters beyond ASCII are left out: their cases differ in more than one bit, and names that have them are rare.
std::size_t Columns::FoldedHash::operator()(std::string_view name) const noexcept {
  std::uint64_t hash = 0xcbf29ce484222325U;
  for (const char letter : name) {
    const auto byte = static_cast<unsigned char>(letter);
    if (byte >= 0x80) continue;
    hash = (hash ^ (byte | 0x20U)) * 0x100000001b3U;
  }
  return hash;
}

bool Columns::FoldedEqual::operator()(std::string_view left, std::string_view right) const noexcept {
  return equalsIgnoreCase(left, right);
}

}  // namespace tarvola::ado
