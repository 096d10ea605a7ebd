#include "tarvola/ado/columns.h"

#include <gtest/gtest.h>

namespace tarvola::ado {
namespace {

TEST(Columns, AreFoundWithoutRegardToCase) {
  const Columns columns({{"NPWP", ColumnType::Text}, {"Total_Bruto", ColumnType::Double}, {"Alamat\xC3\x89", {}}});
  EXPECT_EQ(columns.find("npwp"), 0U);
  EXPECT_EQ(columns.find("TOTAL_BRUTO"), 1U);
  EXPECT_EQ(columns.find("ALAMAT\xC3\xA9"), 2U) << "letters beyond ASCII have cases too";
  EXPECT_EQ(columns.find("Total_Bruto1"), std::nullopt);
  EXPECT_EQ(columns.find(""), std::nullopt);
}

TEST(Columns, OfOneNameAreFoundByTheFirst) {
  const Columns columns({{"a", {}}, {"X", {}}, {"x", {}}});
  EXPECT_EQ(columns.find("x"), 1U);
  EXPECT_EQ(columns.count(), 3U);
}

}  // namespace
}  // namespace tarvola::ado
