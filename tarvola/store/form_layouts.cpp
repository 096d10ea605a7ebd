#include "tarvola/store/form_layouts.h"

#include <algorithm>
#include <array>

#include "tarvola/store/layouts_lists.h"
#include "tarvola/store/layouts_return.h"
#include "tarvola/store/layouts_selfpaid.h"
#include "tarvola/store/layouts_slips.h"

namespace tarvola::store {
namespace {

template <std::size_t... Counts>
constexpr auto together(const std::array<FormLayout, Counts>&... families) {
  std::array<FormLayout, (Counts + ...)> all{};
  std::size_t count = 0;
  (std::for_each(families.begin(), families.end(), [&](const FormLayout& layout) { all[count++] = layout; }), ...);
  return all;
}

constexpr auto layoutTable =
    together(layouts::returnLayouts, layouts::slipLayouts, layouts::listLayouts, layouts::selfPaidLayouts);

constexpr bool hasNoDoubleCode() {
  for (std::size_t index = 0; index < layoutTable.size(); ++index)
    for (std::size_t other = 0; other < index; ++other)
      if (layoutTable[index].code == layoutTable[other].code) return false;
  return true;
}

constexpr bool hasEveryForm() {
  for (const FormCodes& form : allForms) {
    const auto isOfForm = [&](const FormLayout& layout) { return layout.code == form.kdForm; };
    if (std::none_of(layoutTable.begin(), layoutTable.end(), isOfForm)) return false;
  }
  return true;
}

static_assert(hasNoDoubleCode());
static_assert(hasEveryForm());

bool holds(std::span<const LayoutField> fields, std::string_view name) noexcept {
  return std::any_of(fields.begin(), fields.end(),
                     [name](const LayoutField& field) { return layouts::sameName(field.name, name); });
}

}  // namespace

std::optional<std::size_t> FormLayout::position(std::string_view fieldName) const noexcept {
  for (std::size_t index = 0; index < positions.size(); ++index)
    if (holds(positions[index].fields, fieldName)) return index;
  for (std::size_t index = 0; index < extras.size(); ++index)
    if (layouts::sameName(extras[index].name, fieldName)) return positions.size() + index;
  return std::nullopt;
}

NamedField fieldAt(const FormLayout* layout, std::size_t position) {
  if (layout != nullptr && position < layout->positions.size()) {
    const LayoutField& field = layout->positions[position].fields.back();
    return {.name = std::string(field.name), .type = field.type};
  }
  if (layout != nullptr && position - layout->positions.size() < layout->extras.size()) {
    const LayoutField& field = layout->extras[position - layout->positions.size()];
    return {.name = std::string(field.name), .type = field.type};
  }
  return {.name = "Field" + std::to_string(position)};
}

const FormLayout* findLayout(std::string_view code) noexcept {
  for (const FormLayout& layout : layoutTable)
    if (layout.code == code) return &layout;
  return nullptr;
}

std::span<const FormLayout> allLayouts() noexcept { return layoutTable; }

}  // namespace tarvola::store
