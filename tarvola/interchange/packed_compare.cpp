#include "tarvola/interchange/packed_compare.h"

#include <optional>

#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/packed_text.h"

namespace tarvola::interchange {

namespace {

std::optional<double> asNumber(std::string_view field) {
  return field.empty() ? std::optional<double>(0) : tryNumber(field);
}

bool saysTheSameField(std::string_view left, std::string_view right) {
  if (left == right) return true;
  const std::optional<double> leftNumber = asNumber(left);
  return leftNumber && leftNumber == asNumber(right);
}

std::string_view fieldAt(const store::PackedText& fields, std::size_t position) {
  return position < fields.count() ? fields[position] : std::string_view();
}

}  // namespace

std::string fieldsOf(std::string_view packed, std::size_t begin, std::size_t end, std::size_t without) {
  store::PackedText fields;
  fields.cut(packed);
  std::string result;
  for (std::size_t position = begin; position < end; ++position) {
    if (position == without) continue;
    result += store::fieldSeparator;
    store::appendNumberAnew(result, fieldAt(fields, position));
  }
  return result;
}

bool saysTheSame(std::string_view stored, std::string_view other) {
  store::PackedText storedFields;
  storedFields.cut(stored);
  store::PackedText otherFields;
  otherFields.cut(other);
  for (std::size_t position = headFieldCount; position < otherFields.count(); ++position)
    if (!saysTheSameField(fieldAt(storedFields, position), otherFields[position])) return false;
  return true;
}

}  // namespace tarvola::interchange
