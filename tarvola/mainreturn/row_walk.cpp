#include "tarvola/mainreturn/row_walk.h"

#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::mainreturn {
namespace {

void appendQuoted(std::string& criteria, std::string_view value) {
  if (value.find('\'') != std::string_view::npos) fail(ErrorNumber::WrongArguments);
  criteria.append("'").append(value).append("'");
}

}  // namespace

RowCriteria::RowCriteria(const Recordset& rows, std::span<const std::string_view> fields) : rows_(rows) {
  for (const std::string_view field : fields) columns_.push_back({.name = field, .place = rows.column(field)});
}

std::string RowCriteria::ofCurrentRow() const {
  std::string criteria;
  for (const Column& column : columns_) {
    const ado::Cell value = rows_.cell(column.place);
    if (!criteria.empty()) criteria += " AND ";
    criteria.append(column.name).append(" = ");
    if (value.isText()) {
      appendQuoted(criteria, value.text());
    } else {
      criteria += numberLiteral(value.toDouble());
    }
  }
  return criteria;
}

void appendValue(store::Statement& values, const ado::Cell& value) {
  if (value.isNull()) {
    values << "NULL";
  } else if (value.isText()) {
    values << store::text(value.text());
  } else if (value.type() == ado::Cell::Type::Date) {
    std::string date;
    value.appendText(date);
    values << store::text(date);
  } else {
    values << store::number(value.toDouble());
  }
}

}  // namespace tarvola::mainreturn
