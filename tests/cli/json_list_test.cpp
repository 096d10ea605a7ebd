#include "tarvola/cli/json_list.h"

#include <gtest/gtest.h>

#include <sstream>

namespace tarvola::test {
namespace {

using Json = cli::JsonList::Json;

struct Parts {
  Json before;
  Json rows;
  Json after;
};

std::string printed(const Parts& parts) {
  std::ostringstream out;
  cli::JsonList list(out, parts.before, "rows");
  for (const Json& row : parts.rows) list.add(row);
  list.end(parts.after);
  return out.str();
}

/// The same as one object.
std::string asWhole(const Parts& parts) {
  Json whole = parts.before;
  whole["rows"] = parts.rows;
  for (const auto& [name, value] : parts.after.items()) whole[name] = value;
  return whole.dump(2) + "\n";
}

class PrintedJsonList : public testing::TestWithParam<Parts> {};

TEST_P(PrintedJsonList, IsTheTextOfTheWholeObject) { EXPECT_EQ(printed(GetParam()), asWhole(GetParam())); }

const Json none = Json::object();
const Json noRows = Json::array();
const Json rows = {{{"number", "1"}, {"payee", "A \"B\"\nC"}}, {{"amounts", {1, 2}}, {"empty", Json::array()}}, 5};

INSTANTIATE_TEST_SUITE_P(Tool, PrintedJsonList,
                         testing::Values(Parts{{{"month", 1}}, rows, {{"gross", 7}, {"tax", 2}}},
                                         Parts{{{"month", 1}, {"sums", {{"A6", 1}}}}, rows, none},
                                         Parts{none, rows, none}, Parts{none, noRows, none},
                                         Parts{{{"month", 1}}, noRows, {{"tax", 2}}}));

// U+FFFD, so that what is printed is JSON whatever a damaged store holds.
TEST(PrintedJsonListText, ReplacesBytesThatAreNoText) {
  EXPECT_EQ(printed({none, {{{"payee", "M\xFCller"}}}, none}),
            "{\n  \"rows\": [\n    {\n      \"payee\": \"M\xEF\xBF\xBDller\"\n    }\n  ]\n}\n");
}

TEST(PrintedJsonListText, IsIndentedByTwo) {
  EXPECT_EQ(printed({{{"month", 1}}, {{{"a", 1}}, {{"a", 2}}}, {{"tax", 2}}}),
            "{\n  \"month\": 1,\n  \"rows\": [\n    {\n      \"a\": 1\n    },\n    {\n      \"a\": 2\n    }\n  ],\n"
            "  \"tax\": 2\n}\n");
}

}  // namespace
}  // namespace tarvola::test
