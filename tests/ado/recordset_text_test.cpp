#include <gtest/gtest.h>

#include "tests/ado/recordset_fixture.h"

namespace tarvola {
namespace {

using test::errorOf;
using test::here;
using test::namedSizes;
using test::number;
using test::StockStore;

TEST(RecordsetGetString, SeparatesColumnsAndEndsEveryRow) {
  const RecordsetPtr recordset = Recordset::over(namedSizes({{"a", 1}, {"b", 2}}));
  EXPECT_EQ(recordset->GetString(), "a\t1\rb\t2\r");
  EXPECT_EQ(here(*recordset), "EOF");
}

TEST(RecordsetGetString, StartsAtTheCurrentRowAndEndsBehindTheLastOneTaken) {
  const RecordsetPtr recordset = Recordset::over(namedSizes({{"a", 1}, {"b", 2}, {"c", 3}, {"d", 4}}));
  recordset->MoveNext();
  EXPECT_EQ(recordset->GetString(adClipString, 2, ",", ";"), "b,2;c,3;");
  EXPECT_EQ(here(*recordset), "d");
  EXPECT_EQ(recordset->GetString(adClipString, 0, ",", ";"), "d,4;");
}

TEST(RecordsetGetString, WritesValuesByTheRegionalSettings) {
  const StockStore store;
  store.run("INSERT INTO GOODS (NAME, PRICE, BOUGHT, COUNTED) VALUES ('axe', 1234.5, '31/12/2010', True)");
  const RecordsetPtr goods = store.open("SELECT NAME, SIZE, PRICE, BOUGHT, COUNTED FROM GOODS");
  EXPECT_EQ(goods->GetString(adClipString, -1, "|", "\n", "-"), "axe|-|1234,5|31/12/2010|True\n");
}

TEST(RecordsetGetString, KnowsOneFormatOnly) {
  const RecordsetPtr recordset = Recordset::over(namedSizes({{"a", 1}}));
  EXPECT_EQ(errorOf([&] { recordset->GetString(1); }), number(ErrorNumber::WrongArguments));
}

}  // namespace
}  // namespace tarvola
