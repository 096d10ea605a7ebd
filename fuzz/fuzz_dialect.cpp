// Any text as a statement: it is read or refused, and nothing else happens.

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "tarvola/ado/sql/compile.h"
#include "tarvola/ado/sql/literals.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"

namespace {

using namespace tarvola;
using namespace tarvola::ado;
using namespace tarvola::ado::sql;

/// A few short names, so that a mutated text still hits them.
class SmallCatalog final : public Catalog {
 public:
  [[nodiscard]] const Table* find(std::string_view name) const override {
    for (const Table& table : tables_)
      if (equalsIgnoreCase(table.name, name)) return &table;
    return nullptr;
  }

 private:
  std::vector<Table> tables_{
      {"t", {{"a", ColumnType::Text}, {"n", ColumnType::Long}, {"d", ColumnType::Date}, {"r", ColumnType::Double}}},
      {"u", {{"a", ColumnType::LongText}, {"b", ColumnType::Boolean}, {"x", ColumnType::Any}}},
      {"s", {{"MsPjk", ColumnType::Integer}, {"ThPjk", ColumnType::Integer}}},
  };
};

void require(bool holds) {
  if (!holds) std::abort();
}

void convert(const Literal& literal, Conversion conversion) {
  try {
    std::string scratch;
    literalCell(literal, conversion, scratch);
  } catch (const RunTimeError&) {
  }
}

/// What holds for every statement that is accepted.
void checkParameters(const Compiled& compiled, const Shape& shape) {
  require(compiled.literalCount == shape.literals.size());
  for (const EngineText& part : compiled.parts)
    for (const Parameter& parameter : part.parameters) {
      require(parameter.literal < shape.literals.size());
      convert(shape.literals[parameter.literal], parameter.conversion);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const SmallCatalog catalog;
  const std::string statement(reinterpret_cast<const char*>(data), size);
  try {
    Shape shape;
    readShape(statement, shape);
    require(shape.key.size() <= statement.size());
    checkParameters(compile(statement, catalog, {}), shape);
  } catch (const RunTimeError&) {
  }
  return 0;
}
