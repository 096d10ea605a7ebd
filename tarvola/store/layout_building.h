#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "tarvola/store/form_layouts.h"

/// The words in which the layouts are written down. Everything happens while the library is compiled.
namespace tarvola::store::layouts {

constexpr LayoutField text(std::string_view name) { return {.name = name, .type = FieldType::Text}; }
constexpr LayoutField dateText(std::string_view name) { return {.name = name, .type = FieldType::DateText}; }
constexpr LayoutField integer(std::string_view name) { return {.name = name, .type = FieldType::Integer}; }
constexpr LayoutField amount(std::string_view name) { return {.name = name, .type = FieldType::Double}; }

/// Fields that follow one another.
template <class... Fields>
constexpr std::array<LayoutField, sizeof...(Fields)> list(Fields... fields) {
  return {fields...};
}

/// Amounts, rates and counts, all of type Double, that follow one another.
template <class... Names>
constexpr std::array<LayoutField, sizeof...(Names)> amounts(Names... names) {
  return {amount(names)...};
}

/// Runs of fields, one behind the other.
template <std::size_t... Counts>
constexpr std::array<LayoutField, (Counts + ...)> joined(const std::array<LayoutField, Counts>&... runs) {
  std::array<LayoutField, (Counts + ...)> all{};
  std::size_t count = 0;
  const auto append = [&](std::span<const LayoutField> run) {
    for (const LayoutField& field : run) all[count++] = field;
  };
  (append(runs), ...);
  return all;
}

/// Positions of so many fields each, in the order of the fields.
template <const auto& Fields, const auto& FieldCounts>
inline constexpr auto groupedPositions = [] {
  std::array<LayoutPosition, FieldCounts.size()> positions{};
  std::size_t field = 0;
  for (std::size_t index = 0; index < positions.size(); ++index) {
    positions[index].fields = std::span<const LayoutField>(Fields.data() + field, FieldCounts[index]);
    field += FieldCounts[index];
  }
  return positions;
}();

/// A position for each field.
template <const auto& Fields>
inline constexpr auto positionsOf = [] {
  std::array<LayoutPosition, Fields.size()> positions{};
  for (std::size_t index = 0; index < positions.size(); ++index)
    positions[index].fields = std::span<const LayoutField>(Fields.data() + index, 1);
  return positions;
}();

inline constexpr std::span<const LayoutField> noExtras{};

/// Who files for which period: positions 0 to 5 of every document.
inline constexpr auto documentHead = list(text("npwp"), text("NmWP"), text("ALM"), integer("MS_PAJAK"),
                                          integer("TH_PAJAK"), integer("KD_PEMBETULAN_KE"));

/// The party that tax was withheld from.
inline constexpr auto payee = list(text("NPWPLT"), text("NMWPLT"), text("ALMLT"));

constexpr char lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

constexpr bool sameName(std::string_view left, std::string_view right) {
  if (left.size() != right.size()) return false;
  for (std::size_t index = 0; index < left.size(); ++index)
    if (lowered(left[index]) != lowered(right[index])) return false;
  return true;
}

/// No position without a field, no field without a name.
constexpr bool hasNoGap(const FormLayout& layout) {
  for (const LayoutPosition& position : layout.positions) {
    if (position.fields.empty()) return false;
    for (const LayoutField& field : position.fields)
      if (field.name.empty()) return false;
  }
  return !layout.positions.empty();
}

/// The number of fields of a layout, extras included.
constexpr std::size_t fieldCount(const FormLayout& layout) {
  std::size_t count = layout.extras.size();
  for (const LayoutPosition& position : layout.positions) count += position.fields.size();
  return count;
}

/// No two fields of one name; case makes no difference.
constexpr bool hasNoDoubleName(const FormLayout& layout) {
  std::string_view names[160] = {};
  std::size_t count = 0;
  const auto isNew = [&](const LayoutField& field) {
    for (std::size_t other = 0; other < count; ++other)
      if (names[other].size() == field.name.size() && sameName(names[other], field.name)) return false;
    names[count++] = field.name;
    return true;
  };
  for (const LayoutPosition& position : layout.positions)
    for (const LayoutField& field : position.fields)
      if (!isNew(field)) return false;
  for (const LayoutField& field : layout.extras)
    if (!isNew(field)) return false;
  return true;
}

template <std::size_t Count>
constexpr bool areSound(const std::array<FormLayout, Count>& all) {
  for (const FormLayout& layout : all)
    if (!hasNoGap(layout) || !hasNoDoubleName(layout)) return false;
  return true;
}

}  // namespace tarvola::store::layouts
