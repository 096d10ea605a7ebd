// Reads any bytes as a criteria text, matches it against rows of every type, and compares the answer of the index with
// that of a walk.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <vector>

#include "tarvola/ado/filter.h"
#include "tarvola/ado/filter_index.h"
#include "tarvola/ado/row_test.h"
#include "tarvola/ado/table_rows.h"
#include "tarvola/runtime/errors.h"

namespace {

using tarvola::Date;
using tarvola::RunTimeError;
using tarvola::Variant;
using namespace tarvola::ado;

std::shared_ptr<const Columns> columnsOfEveryType() {
  return std::make_shared<const Columns>(std::vector<Column>{{.name = "T", .type = ColumnType::Text},
                                                             {.name = "N", .type = ColumnType::Double},
                                                             {.name = "D", .type = ColumnType::Date},
                                                             {.name = "B", .type = ColumnType::Boolean},
                                                             {.name = "A", .type = ColumnType::Any}});
}

const TableRows& rows() {
  static const auto made = [] {
    auto table = std::make_unique<TableRows>(columnsOfEveryType());
    const std::array<std::vector<Variant>, 4> content{
        {{"abc", 1.0, Date::fromYmd(2010, 12, 31), true, "05"},
         {"ABC", -2.5, Date::fromYmd(2010, 1, 2), false, 5.0},
         {"", 0.0, Variant::null(), Variant::null(), Date::fromYmd(2010, 12, 31)},
         {Variant::null(), Variant::null(), Date::fromSerial(0), true, Variant::null()}}};
    for (const auto& values : content) {
      const std::size_t row = table->append();
      for (std::size_t column = 0; column < values.size(); ++column) table->set(row, column, values[column]);
    }
    return table;
  }();
  return *made;
}

void require(bool condition) {
  if (!condition) std::abort();
}

void compareIndexWithWalk(const RowCriteria& criteria) {
  std::vector<std::uint32_t> walked;
  for (std::uint32_t row = 0; row < rows().count(); ++row) {
    if (criteria.match(rows(), row)) walked.push_back(row);
  }
  if (criteria.indexable().empty()) return;
  std::vector<std::uint32_t> found;
  FilterIndex(rows(), criteria.indexable()).find(rows(), criteria.indexable(), found);
  require(found == walked);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  Filter filter;
  RowCriteria criteria;
  try {
    filter.read(text);
    criteria.bind(filter, rows().columns());
    require(!filter.clauses().empty());
    require(filter.alternativeEnds().back() == filter.clauses().size());
    require(std::is_sorted(filter.alternativeEnds().begin(), filter.alternativeEnds().end()));
  } catch (const RunTimeError&) {
    return 0;
  }
  compareIndexWithWalk(criteria);
  return 0;
}
