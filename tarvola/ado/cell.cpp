#include "tarvola/ado/cell.h"

#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::ado {

static_assert(sizeof(Cell) == 16, "a set of rows is as large as its cells");

Cell Cell::of(const Variant& value) noexcept {
  switch (value.type()) {
    case Type::Null:
      return null();
    case Type::Integer:
      return integer(value.integer());
    case Type::Long:
      return longInteger(value.longInteger());
    case Type::Double:
      return number(value.number());
    case Type::Boolean:
      return boolean(value.boolean());
    case Type::Date:
      return date(value.date());
    case Type::String:
      return text(value.string());
    default:
      return {};
  }
}

Variant Cell::toVariant() const {
  switch (type_) {
    case Type::Null:
      return Variant::null();
    case Type::Integer:
      return static_cast<std::int16_t>(data_.whole);
    case Type::Long:
      return data_.whole;
    case Type::Boolean:
      return data_.whole != 0;
    case Type::Double:
      return data_.real;
    case Type::Date:
      return Date::fromSerial(data_.real);
    case Type::String:
      return text();
    default:
      return {};
  }
}

double Cell::toDouble() const {
  switch (type_) {
    case Type::Integer:
    case Type::Long:
    case Type::Boolean:
      return data_.whole;
    case Type::Double:
    case Type::Date:
      return data_.real;
    case Type::String:
      return CDbl(text());
    case Type::Null:
      fail(ErrorNumber::InvalidUseOfNull);
    default:
      return 0;
  }
}

void Cell::appendText(std::string& out) const {
  switch (type_) {
    case Type::String:
      out += text();
      break;
    case Type::Double:
      appendCStr(out, data_.real);
      break;
    case Type::Empty:
      break;
    default:
      out += CStr(toVariant());
  }
}

}  // namespace tarvola::ado
