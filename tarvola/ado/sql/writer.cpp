#include "tarvola/ado/sql/writer.h"

#include "tarvola/ado/sql/writer_nested.h"

namespace tarvola::ado::sql {

EngineText Writer::write(const Query& statement) {
  query(statement, {});
  return std::move(out_);
}

EngineText Writer::write(const Select& statement, const SelectUse& use) {
  select(statement, use);
  return std::move(out_);
}

EngineText Writer::write(const Insert& insert) {
  put("INSERT INTO ");
  putName(insert.target->name);
  put(" (");
  putList(insert.targets);
  if (insert.query) {
    put(") ");
    query(*insert.query, {.targets = insert.targets});
    return std::move(out_);
  }
  put(") VALUES (");
  for (std::size_t place = 0; place < insert.values.size(); ++place) {
    if (place != 0) put(", ");
    assignedValue(*insert.values[place], *insert.targets[place]);
  }
  put(")");
  return std::move(out_);
}

EngineText Writer::write(const Update& update) {
  put("UPDATE ");
  table(*update.table);
  const char* between = " SET ";
  for (const Assignment& assignment : update.assignments) {
    put(between);
    putName(assignment.target->column->name);
    put(" = ");
    assignedValue(*assignment.value, *assignment.target->column);
    between = ", ";
  }
  putWhere(update.where.get());
  return std::move(out_);
}

EngineText Writer::write(const Delete& remove) {
  put("DELETE FROM ");
  table(*remove.table);
  putWhere(remove.where.get());
  return std::move(out_);
}

void Writer::putWhere(const Expression* where) {
  if (where == nullptr) return;
  put(" WHERE ");
  condition(*where, Level::Or);
}

void Writer::putName(std::string_view name) {
  out_.text += dialect_.identifierQuote;
  for (const char character : name) {
    if (character == dialect_.identifierQuote) out_.text += character;
    out_.text += character;
  }
  out_.text += dialect_.identifierQuote;
}

void Writer::putAs(std::string_view name) {
  put(" AS ");
  putName(name);
}

void Writer::putColumn(const Source* source, const Column& column) {
  if (qualified_ && source != nullptr) {
    putName(source->name);
    put(".");
  }
  putName(column.name);
}

void Writer::putList(std::span<const Column* const> columns) {
  for (std::size_t place = 0; place < columns.size(); ++place) {
    if (place != 0) put(", ");
    putName(columns[place]->name);
  }
}

void Writer::putParameter(std::size_t literal, Conversion conversion) {
  put("?");
  out_.parameters.push_back({literal, conversion});
}

}  // namespace tarvola::ado::sql
