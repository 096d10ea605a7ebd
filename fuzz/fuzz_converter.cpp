#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include "tarvola/ado/table_rows.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/store/form_layouts.h"
#include "tarvola/store/named_field_rows.h"

// The converter over any packed text: reading every field never fails, and a text that was packed once packs to itself
// ever after. The first byte picks the layout, the second a field that is written, the third what is written into it.

namespace {

using namespace tarvola;

ado::ColumnsPtr storeColumns() {
  static const auto columns =
      std::make_shared<const ado::Columns>(std::vector<ado::Column>{{"NPWP", ado::ColumnType::Text},
                                                                    {"DAT_FORM", ado::ColumnType::LongText},
                                                                    {"Total_PPh", ado::ColumnType::Double}});
  return columns;
}

std::shared_ptr<store::NamedFieldRows> expanded(const store::FormLayout& layout, std::string_view packed) {
  auto rows = std::make_shared<ado::TableRows>(storeColumns());
  rows->append();
  rows->set(0, 1, packed);
  return store::NamedFieldRows::expand(layout, rows, {0}, 1);
}

void readEveryField(const store::NamedFieldRows& rows) {
  for (std::size_t column = 0; column < rows.columns().count(); ++column) {
    std::string viaCell;
    if (const ado::Cell cell = rows.cell(0, column); !cell.isNull()) cell.appendText(viaCell);
    std::string direct;
    rows.appendFieldText(direct, 0, column);
    if (viaCell != direct) std::abort();
  }
}

/// Writes a value as a screen would. What a field does not take must leave it as it was.
void writeField(store::NamedFieldRows& rows, std::size_t column, std::uint8_t choice, std::string_view text) {
  const Variant values[] = {Variant::null(),           Variant(),    Variant(text), Variant(2.5),
                            Variant(std::int16_t{-1}), Variant(true)};
  const Variant before = rows.cell(0, column).toVariant();
  try {
    rows.set(0, column, values[choice % std::size(values)]);
  } catch (const RunTimeError&) {
    if (!(rows.cell(0, column).toVariant() == before)) std::abort();
  }
}

void checkPacking(const store::FormLayout& layout, const store::NamedFieldRows& rows) {
  std::string once;
  try {
    once = rows.pack(0);
  } catch (const RunTimeError& error) {
    // Only a ";" that was written into a field is refused.
    if (error.number() != static_cast<std::int32_t>(ErrorNumber::InvalidProcedureCall)) std::abort();
    return;
  }
  const auto again = expanded(layout, once);
  readEveryField(*again);
  if (again->pack(0) != once) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 3) return 0;
  const auto layouts = store::allLayouts();
  const store::FormLayout& layout = layouts[data[0] % layouts.size()];
  const std::string_view text(reinterpret_cast<const char*>(data) + 3, size - 3);
  const auto rows = expanded(layout, text);
  readEveryField(*rows);
  checkPacking(layout, *rows);
  writeField(*rows, data[1] % rows->columns().count(), data[2], text.substr(0, 20));
  readEveryField(*rows);
  checkPacking(layout, *rows);
  return 0;
}
