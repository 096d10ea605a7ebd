#include "tarvola/store/expansion.h"

#include <algorithm>
#include <string>
#include <unordered_set>

#include "tarvola/runtime/text_forms.h"

namespace tarvola::store {
namespace {

/// The packed text itself is no field of its own fields.
constexpr std::string_view packedColumn = "DAT_FORM";

/// A numeric position may hold a text that is no number, so its column takes anything.
ado::ColumnType columnType(FieldType type) noexcept {
  return type == FieldType::Text || type == FieldType::DateText ? ado::ColumnType::LongText : ado::ColumnType::Any;
}

/// Puts columns and places together, side by side.
class Builder {
 public:
  void add(std::string_view name, ado::ColumnType type, const FieldPlace& place) {
    columns_.push_back({.name = std::string(name), .type = type});
    places_.push_back(place);
    taken_.insert(foldCase(name));
  }

  void addPosition(const LayoutPosition& position, std::uint32_t index) {
    const std::size_t partCount = position.fields.size();
    for (std::size_t part = 0; part < partCount; ++part) {
      const LayoutField& field = position.fields[part];
      add(field.name, columnType(field.type),
          {.origin = FieldPlace::Origin::Layout,
           .type = field.type,
           .part = static_cast<std::uint8_t>(part),
           .partCount = static_cast<std::uint8_t>(partCount),
           .index = index});
    }
  }

  void addPlainColumns(const ado::Columns& source) {
    for (std::size_t index = 0; index < source.count(); ++index) {
      const ado::Column& column = source[index];
      const bool isField = column.type == ado::ColumnType::Chapter || equalsIgnoreCase(column.name, packedColumn) ||
                           taken_.contains(foldCase(column.name));
      if (isField) continue;
      add(column.name, column.type, {.origin = FieldPlace::Origin::Plain, .index = static_cast<std::uint32_t>(index)});
    }
  }

  void finish(Expansion& expansion) {
    expansion.columns = std::make_shared<const ado::Columns>(std::move(columns_));
    expansion.places = std::move(places_);
  }

 private:
  std::vector<ado::Column> columns_;
  std::vector<FieldPlace> places_;
  std::unordered_set<std::string> taken_;
};

std::shared_ptr<const Expansion> build(const FormLayout& layout, const ado::ColumnsPtr& source,
                                       std::size_t beyondCount) {
  auto made = std::make_shared<Expansion>();
  made->layout = &layout;
  made->source = source;
  made->beyondCount = beyondCount;
  Builder builder;
  std::uint32_t index = 0;
  for (const LayoutPosition& position : layout.positions) builder.addPosition(position, index++);
  for (const LayoutField& extra : layout.extras) {
    builder.add(extra.name, columnType(extra.type),
                {.origin = FieldPlace::Origin::Extra, .type = extra.type, .index = index++});
  }
  for (std::size_t beyond = 0; beyond < beyondCount; ++beyond, ++index) {
    builder.add("Field" + std::to_string(index), ado::ColumnType::LongText,
                {.origin = FieldPlace::Origin::Beyond, .index = index});
  }
  builder.addPlainColumns(*source);
  builder.finish(*made);
  return made;
}

bool sameColumns(const ado::Columns& left, const ado::Columns& right) {
  if (left.count() != right.count()) return false;
  for (std::size_t index = 0; index < left.count(); ++index)
    if (left[index].type != right[index].type || left[index].name != right[index].name) return false;
  return true;
}

/// The expansions that this thread used last, the last used in front.
class Cache {
 public:
  std::shared_ptr<const Expansion> get(const FormLayout& layout, const ado::ColumnsPtr& source,
                                       std::size_t beyondCount) {
    const auto isWanted = [&](const std::shared_ptr<const Expansion>& known) {
      return known->layout == &layout && known->beyondCount == beyondCount &&
             (known->source == source || sameColumns(*known->source, *source));
    };
    const auto found = std::find_if(known_.begin(), known_.end(), isWanted);
    if (found == known_.end()) return remember(build(layout, source, beyondCount));
    std::rotate(known_.begin(), found, found + 1);
    return known_.front();
  }

 private:
  static constexpr std::size_t capacity = 64;

  std::shared_ptr<const Expansion> remember(std::shared_ptr<const Expansion> made) {
    if (known_.size() == capacity) known_.pop_back();
    known_.insert(known_.begin(), made);
    return made;
  }

  std::vector<std::shared_ptr<const Expansion>> known_;
};

}  // namespace

std::shared_ptr<const Expansion> Expansion::of(const FormLayout& layout, const ado::ColumnsPtr& source,
                                               std::size_t fieldCount) {
  thread_local Cache cache;
  const std::size_t known = layout.positions.size() + layout.extras.size();
  return cache.get(layout, source, fieldCount > known ? fieldCount - known : 0);
}

}  // namespace tarvola::store
