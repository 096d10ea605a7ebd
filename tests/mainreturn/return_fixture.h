#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/ado/connection.h"
#include "tarvola/ado/recordset.h"
#include "tarvola/mainreturn/CF113204.h"
#include "tarvola/runtime/errors.h"
#include "tests/support/messages.h"
#include "tests/support/store_fixture.h"

namespace tarvola::test {

/// A document of the return of March 2009 as a test writes it: fields and total columns by name.
struct Document {
  std::string_view form;
  std::string number = "000001/PPH4/2009";
  /// Positions of the packed text. Those that are not named are 0 in numbers and empty in texts.
  std::map<std::string, std::string> fields = {};
  /// Columns of the store row beside its identity, for slips: Total_Bruto and its kin.
  std::map<std::string, std::string> totals = {};
  int correction = 0;
  /// Taken as it is instead of one put together from the fields.
  std::optional<std::string> packedText = {};
};

/// A new store with the settings that it is delivered with, the thread's connection set to it, messages captured and
/// the clock stopped at 15 April 2009. The return is that of March 2009.
class ReturnTest : public ::testing::Test {
 protected:
  ReturnTest();
  ~ReturnTest() override;

  /// The six header documents.
  void makeReturn(std::int16_t correction = 0);
  /// Loads the return of March 2009.
  static void load(CF113204& mainReturn, std::int16_t correction = 0);
  /// Loads, recounts and gives the named fields.
  RecordsetPtr recount(CF113204& mainReturn);
  void addDocument(const Document& document);

  void run(const std::string& statement) { connection_->Execute(statement); }
  RecordsetPtr query(const std::string& statement) { return connection_->Execute(statement); }
  /// The first column of every row as text, Null as "(null)".
  std::vector<std::string> column(const std::string& statement);
  /// The packed text of a header document of the return.
  std::string packedText(std::string_view form, int correction = 0);
  /// Replaces one position of the main form's packed text in the store.
  void putPosition(std::string_view field, std::string_view text);

  static double number(CF113204& mainReturn, std::string_view field);
  static Variant value(CF113204& mainReturn, std::string_view field);
  static void put(CF113204& mainReturn, std::string_view field, const Variant& value);

  static std::string description(ErrorNumber error) { return std::string(errorText(error)); }

  CapturedMessages messages_;
  StoreFixture store_;
  ConnectionPtr connection_;
};

}  // namespace tarvola::test
