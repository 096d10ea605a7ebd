#include <gtest/gtest.h>

#include "tests/ado/recordset_fixture.h"

namespace tarvola {
namespace {

using test::errorOf;
using test::namedSizes;
using test::number;
using test::StockStore;

TEST(RecordsetFields, AreFoundByNameInAnyCaseAndByOrdinal) {
  const RecordsetPtr recordset = Recordset::over(namedSizes({{"axe", 7}}));
  Fields& fields = recordset->get_Fields();
  EXPECT_EQ(fields.get_Count(), 2);
  EXPECT_EQ(fields.get_Item("size").get_Value(), Variant(std::int32_t{7}));
  EXPECT_EQ(fields.get_Item(std::int32_t{1}).get_Name(), "SIZE");
  EXPECT_EQ(fields.get_Item(std::int16_t{0}).get_Name(), "NAME");
  EXPECT_EQ(fields.get_Item(0.1).get_Name(), "NAME");
  EXPECT_EQ(fields.get_Item(0.6).get_Name(), "SIZE");
}

TEST(RecordsetFields, ThatDoNotExistAreError3265) {
  const RecordsetPtr recordset = Recordset::over(namedSizes({{"axe", 7}}));
  const auto missing = number(ErrorNumber::ItemNotFound);
  for (const Variant& index : {Variant("PRICE"), Variant("0"), Variant(""), Variant(std::int32_t{2}),
                               Variant(std::int32_t{-1}), Variant(1e300), Variant(true), Variant(), Variant::null(),
                               Variant(RecordsetPtr()), Variant(Variant::Array{})}) {
    EXPECT_EQ(errorOf([&] { recordset->get_Fields().get_Item(index); }), missing);
    EXPECT_EQ(errorOf([&] { recordset->get_Collect(index); }), missing);
    EXPECT_EQ(errorOf([&] { recordset->put_Collect(index, "x"); }), missing);
  }
  EXPECT_EQ(errorOf([&] { static_cast<void>(recordset->column("PRICE")); }), missing);
  EXPECT_EQ(errorOf([&] { static_cast<void>(recordset->cell(2)); }), missing);
}

TEST(RecordsetFields, AreTheSameObjectEachTimeAndShowTheCurrentRow) {
  const RecordsetPtr recordset = Recordset::over(namedSizes({{"axe", 1}, {"bow", 2}}));
  Field& name = recordset->get_Fields().get_Item("NAME");
  EXPECT_EQ(&name, &recordset->get_Fields().get_Item(std::int32_t{0}));
  EXPECT_EQ(name.get_Value(), Variant("axe"));
  recordset->MoveNext();
  EXPECT_EQ(name.get_Value(), Variant("bow"));
}

TEST(RecordsetFields, AreGoneAfterClose) {
  const RecordsetPtr recordset = Recordset::over(namedSizes({{"axe", 1}}));
  Field& name = recordset->get_Fields().get_Item("NAME");
  recordset->Close();
  EXPECT_EQ(recordset->get_Fields().get_Count(), 0);
  EXPECT_EQ(errorOf([&] { name.get_Value(); }), number(ErrorNumber::ObjectInvalid));
  EXPECT_EQ(errorOf([&] { name.put_Value("x"); }), number(ErrorNumber::ObjectInvalid));
  EXPECT_EQ(errorOf([&] { name.get_Name(); }), number(ErrorNumber::ObjectInvalid));
}

TEST(RecordsetFields, OfOneNameTwiceFindTheFirst) {
  const auto columns = std::make_shared<const ado::Columns>(std::vector<ado::Column>{
      {.name = "ID", .type = ado::ColumnType::Long}, {.name = "id", .type = ado::ColumnType::Long}});
  const auto rows = std::make_shared<ado::TableRows>(columns);
  rows->set(rows->append(), 0, std::int32_t{5});
  rows->set(0, 1, std::int32_t{6});
  const RecordsetPtr recordset = Recordset::over(rows);
  EXPECT_EQ(recordset->get_Collect("Id"), Variant(std::int32_t{5}));
  EXPECT_EQ(recordset->get_Collect(std::int32_t{1}), Variant(std::int32_t{6}));
}

TEST(RecordsetValues, OfTheStoreKeepTheirTypes) {
  const StockStore store;
  store.run("INSERT INTO GOODS (NAME, SIZE, PRICE, BOUGHT, COUNTED) VALUES (' axe ', 3, 2.5, '31/12/2010', True)");
  const RecordsetPtr goods = store.goods();
  EXPECT_EQ(goods->get_Collect("NAME"), Variant(" axe "));
  EXPECT_EQ(goods->get_Collect("SIZE"), Variant(std::int32_t{3}));
  EXPECT_EQ(goods->get_Collect("PRICE"), Variant(2.5));
  EXPECT_EQ(goods->get_Collect("BOUGHT"), Variant(Date::fromYmd(2010, 12, 31)));
  EXPECT_EQ(goods->get_Collect("COUNTED"), Variant(true));
  EXPECT_TRUE(goods->get_Collect("REMARK").isNull());
}

TEST(RecordsetValues, AreConvertedToTheColumnsTypeAtOnce) {
  const StockStore store;
  store.addGoods({"axe"});
  const RecordsetPtr goods = store.goods();
  goods->put_Collect("SIZE", "12");
  EXPECT_EQ(goods->get_Collect("SIZE"), Variant(std::int32_t{12}));
  goods->put_Collect("PRICE", "1.234,5");
  EXPECT_EQ(goods->get_Collect("PRICE"), Variant(1234.5));
  goods->put_Collect("NAME", std::int32_t{5});
  EXPECT_EQ(goods->get_Collect("NAME"), Variant("5"));
}

TEST(RecordsetValues, ThatCannotBeConvertedLeaveCellAndEditModeAsTheyWere) {
  const StockStore store;
  store.addGoods({"axe"});
  const RecordsetPtr goods = store.goods();
  EXPECT_EQ(errorOf([&] { goods->put_Collect("SIZE", "abc"); }), number(ErrorNumber::ComTypeMismatch));
  EXPECT_EQ(goods->get_Collect("SIZE"), Variant(std::int32_t{1}));
  EXPECT_EQ(goods->get_EditMode(), adEditNone);
}

TEST(RecordsetValues, BeyondTheWidthOfTheColumnAreRefusedAtOnce) {
  const StockStore store;
  store.run("INSERT INTO LABELS VALUES ('a', 1)");
  const RecordsetPtr labels = store.open("SELECT PLACE, CODE FROM LABELS");
  const std::int32_t multipleStep = number(ErrorNumber::MultipleStepErrors);
  for (const Variant& wide : {Variant("abcd"), Variant(1234), Variant("\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9")})
    EXPECT_EQ(errorOf([&] { labels->put_Collect("CODE", wide); }), multipleStep);
  EXPECT_EQ(errorOf([&] { labels->put_Collect("PLACE", 32768); }), multipleStep);
  EXPECT_EQ(labels->get_EditMode(), adEditNone);
  labels->put_Collect("CODE", "\xC3\xA9\xC3\xA9\xC3\xA9");
  labels->put_Collect("PLACE", 32767);
  labels->Update();
  EXPECT_EQ(store.stored("SELECT CODE, PLACE FROM LABELS"), "\xC3\xA9\xC3\xA9\xC3\xA9,32767|");
  labels->put_Collect("CODE", Variant::null());
  labels->Update();
  EXPECT_EQ(store.stored("SELECT CODE, PLACE FROM LABELS"), "null,32767|");
}

TEST(RecordsetValues, KnowWhatStandsBehindAPendingChange) {
  const StockStore store;
  store.addGoods({"axe"});
  const RecordsetPtr goods = store.goods();
  Field& name = goods->get_Fields().get_Item("NAME");
  name.put_Value("bow");
  name.put_Value("cup");
  EXPECT_EQ(name.get_Value(), Variant("cup"));
  EXPECT_EQ(name.get_UnderlyingValue(), Variant("axe"));
  EXPECT_EQ(name.get_OriginalValue(), Variant("axe"));
  goods->Update();
  EXPECT_EQ(name.get_UnderlyingValue(), Variant("cup"));
  EXPECT_EQ(name.get_OriginalValue(), Variant("cup"));
}

TEST(RecordsetValues, OfARowBeingAddedHaveNothingBehindThem) {
  const StockStore store;
  const RecordsetPtr goods = store.goods();
  goods->AddNew();
  goods->put_Collect("NAME", "axe");
  EXPECT_TRUE(goods->get_Fields().get_Item("NAME").get_UnderlyingValue().isEmpty());
  EXPECT_TRUE(goods->get_Fields().get_Item("SIZE").get_Value().isEmpty());
}

TEST(RecordsetCells, AreReadByPlaceWithoutACopy) {
  const RecordsetPtr recordset = Recordset::over(namedSizes({{"axe", 7}}));
  const std::size_t size = recordset->column("size");
  EXPECT_EQ(recordset->cell(size).toDouble(), 7);
  EXPECT_EQ(recordset->cell(recordset->column("NAME")).text(), "axe");
}

}  // namespace
}  // namespace tarvola
