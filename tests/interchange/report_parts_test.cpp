// What the reporting file is put together by: the order of its documents, and a compression that gets its text in
// pieces.

#include <gtest/gtest.h>

#include <random>

#include "tarvola/ado/table_rows.h"
#include "tarvola/interchange/report_rows.h"
#include "tarvola/interchange/zlib_codec.h"

namespace tarvola::test {
namespace {

using namespace tarvola::interchange;

/// Rows of a selection of documents; a code of "-" is Null. The packed text is the number of the row.
ado::RowsPtr rowsOf(std::initializer_list<std::string_view> codes) {
  using ado::ColumnType;
  auto rows = std::make_shared<ado::TableRows>(std::make_shared<ado::Columns>(std::vector<ado::Column>{
      {"JENIS_DOKUMEN", ColumnType::Text}, {"KD_FORM", ColumnType::Text}, {"DAT_FORM", ColumnType::LongText}}));
  for (const std::string_view code : codes) {
    const std::size_t row = rows->append();
    rows->set(row, JenisDokumen, code == "-" ? Variant::null() : Variant(code));
    rows->set(row, KdForm, "F113319");
    rows->set(row, DatForm, std::to_string(row));
  }
  return rows;
}

std::string orderOf(std::initializer_list<std::string_view> codes) {
  std::string order;
  forEachDocument(*rowsOf(codes), [&](const ReportDocument& document) {
    order.append(document.jenisDokumen).append(":").append(document.datForm).append(" ");
    EXPECT_EQ(document.kdForm, "F113319");
  });
  return order;
}

TEST(ReportRows, ComeByTheirCodeAndWithinOneCodeAsTheStoreGivesThem) {
  EXPECT_EQ(orderOf({}), "");
  EXPECT_EQ(orderOf({"02", "02", "15"}), "02:0 02:1 15:2 ");
  EXPECT_EQ(orderOf({"15", "15", "02", "15", "02", "01"}), "01:5 02:2 02:4 15:0 15:1 15:3 ");
}

TEST(ReportRows, CodesAreComparedWithoutRegardToCaseAndNullStandsInFront) {
  EXPECT_EQ(orderOf({"b", "A", "B", "-", "a"}), ":3 A:1 a:4 b:0 B:2 ");
  EXPECT_EQ(orderOf({"1", "", "-"}), ":2 :1 1:0 ");
}

/// Lines that resemble one another, as those of a month do.
std::string linesOfAMonth(std::mt19937& random, std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i)
    text +=
        "113;02;F113309;" + std::to_string(random()) + ";Jl. Merdeka No. " + std::to_string(random() % 300) + ";\r\n";
  return text;
}

TEST(Deflation, GivesTheBytesOfTheWholeTextHoweverItIsCut) {
  const unsigned seed = std::random_device()();
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  for (const std::size_t count : {0U, 1U, 500U, 20000U}) {
    const std::string text = linesOfAMonth(random, count);
    std::string whole;
    ASSERT_EQ(compressBytes(text, roomToCompress(text.size()), whole), zlibSuccess);
    Deflation pieces;
    for (std::string_view rest = text; !rest.empty();) {
      const std::size_t length = std::min<std::size_t>(rest.size(), 1 + random() % 100'000);
      pieces.add(rest.substr(0, length));
      rest.remove_prefix(length);
    }
    EXPECT_EQ(pieces.finish(), whole) << count;
  }
}

}  // namespace
}  // namespace tarvola::test
