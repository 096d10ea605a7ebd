// What is refused leaves the store as it was, to the last row and column.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "tarvola/cli/commands.h"
#include "tarvola/tarvola.h"
#include "tests/support/temp_folder.h"

namespace tarvola::test {
namespace {

struct Outcome {
  int code;
  std::string text;
};

/// A store with a return of January 2009 that holds a lottery slip and a self-paid form of rent.
class StoreOfOne {
 public:
  StoreOfOne() {
    EXPECT_EQ(
        run({"store", "create", path(), "--npwp", "013121660091000", "--name", "PT Contoh", "--address", "Jl. 1"}).code,
        0);
    EXPECT_EQ(run({"return", "create", "-p", "01/2009"}).code, 0);
    EXPECT_EQ(run({"slip", "add", "-p", "01/2009", "-f", "lottery", "--date", "08/01/2009", "--set", "B13=1000"}).code,
              0);
    EXPECT_EQ(run({"selfpaid", "add", "-p", "01/2009", "-f", "rent", "--ntpn", "77", "--date", "08/01/2009", "--set",
                   "JMLBRUTO=1000", "--set", "PPH=100"})
                  .code,
              0);
  }

  [[nodiscard]] std::string path(const char* file = "s.tarvola") const { return folder.path(file); }

  Outcome run(std::vector<std::string> words) const {
    if (words.at(1) != "create" || words.at(0) == "return") words.insert(words.end(), {"-s", path()});
    std::ostringstream out;
    const int code = cli::run(words, out, out);
    return {code, out.str()};
  }

  /// All rows of all tables that a command could write.
  [[nodiscard]] std::string dump() const {
    CGeneralClass general;
    general.pSetCon(path(), "", "");
    std::string all;
    for (const char* table : {"DS_FORM_INDUK", "DS_FORM_LAMPIRAN", "DAT_SSP_PPh22", "LAMPIRAN_SSP_PPh22", "D113210",
                              "DATSSP", "datPBKPPhMasa", "SETTING_NOBUKTI_PPH", "BURSA", "PROFILE"}) {
      const RecordsetPtr rows = general.pGetRecordDbase(std::string("SELECT * FROM ") + table);
      all += std::string(table) + ":\n";
      if (!rows->get_EOF()) all += rows->GetString(adClipString, -1, "|", "\n", "Null");
    }
    return all;
  }

  TempFolder folder;
};

struct RefusedInput {
  const char* name;
  std::vector<std::string> words;
  int code;
  /// What is wrong, and how to mend it.
  const char* fault;
  const char* remedy;
  /// What stands in the file "given.json", if the command reads it.
  const char* file = nullptr;
};

void PrintTo(const RefusedInput& input, std::ostream* out) { *out << input.name; }

class Refused : public testing::TestWithParam<RefusedInput> {};

TEST_P(Refused, IsToldWithItsRemedyAndWritesNothing) {
  const StoreOfOne store;
  std::vector<std::string> words = GetParam().words;
  if (GetParam().file != nullptr) {
    store.folder.write("given.json", GetParam().file);
    words.insert(words.end(), {"--from", store.path("given.json")});
  }
  const std::string before = store.dump();
  ASSERT_THAT(before, testing::HasSubstr("000001/PPH4"));
  const Outcome outcome = store.run(words);
  EXPECT_EQ(outcome.code, GetParam().code);
  EXPECT_EQ(outcome.text, std::string("tarvola: ") + GetParam().fault + "\n" + GetParam().remedy + "\n");
  EXPECT_EQ(store.dump(), before);
}

std::vector<std::string> slip(const char* command, std::vector<std::string> more) {
  std::vector<std::string> words = {"slip", command, "-p", "01/2009"};
  words.insert(words.end(), more.begin(), more.end());
  return words;
}
std::vector<std::string> selfPaid(const char* command, std::vector<std::string> more) {
  std::vector<std::string> words = {"selfpaid", command, "-p", "01/2009", "-f", "rent"};
  words.insert(words.end(), more.begin(), more.end());
  return words;
}
std::vector<std::string> newSlip(const char* assignment) {
  return slip("add", {"-f", "lottery", "--date", "09/01/2009", "--set", assignment});
}
std::vector<std::string> changedSlip(const char* assignment) {
  return slip("edit", {"-n", "000001/PPH4", "--set", assignment});
}
std::vector<std::string> newForm(const char* assignment) {
  return selfPaid("add", {"--ntpn", "78", "--date", "09/01/2009", "--set", assignment});
}
std::vector<std::string> changedForm(const char* assignment) {
  return selfPaid("edit", {"--ntpn", "77", "--set", assignment});
}

constexpr const char* lotteryFields =
    "It has: NPWPLT, NMWPLT, ALMLT, B12, B13, B14, B15, B22, B23, B24, B25, B32, B33, B34, B35, B42, B43, B44, B45, "
    "B52, B53, B54, B55, B62, B63, B64, B65, INVOICE.";
constexpr const char* rentFields = "It has: Lokasi, JMLBRUTO, PPH, keterangan.";
constexpr const char* howNumbersAreWritten =
    "Write amounts as 1000000 or 1.000.000, decimals behind a comma, as in 2,5.";
constexpr const char* largestAmount = "Amounts are whole rupiah below 1.000.000.000.000.000.";
constexpr const char* howReturnsAreMade = "Make one with 'tarvola return create', or import an exchange file.";
constexpr const char* seeSlips = "See its slips with: tarvola slip list";
constexpr const char* seeForms = "See its forms with: tarvola selfpaid list";
constexpr const char* seeDigits =
    "The tax is a part of the gross; see whether one of them has a digit too few or too many.";

INSTANTIATE_TEST_SUITE_P(
    Slips, Refused,
    testing::Values(
        RefusedInput{"UnknownField", newSlip("B99=1"), 2, "The form has no field \"B99\" that can be set.",
                     lotteryFields},
        RefusedInput{"UnknownFieldOfAnEdit", changedSlip("B99=1"), 2, "The form has no field \"B99\" that can be set.",
                     lotteryFields},
        RefusedInput{"TextInAnAmount", newSlip("B13=seribu"), 2, "B13: \"seribu\" is no number.", howNumbersAreWritten},
        RefusedInput{"TextInAnAmountOfAnEdit", changedSlip("B13=seribu"), 2, "B13: \"seribu\" is no number.",
                     howNumbersAreWritten},
        RefusedInput{"HugeTariff", newSlip("B14=1e300"), 2, "B14: \"1e300\" is no number.", howNumbersAreWritten},
        RefusedInput{"HugeTariffInDigits", newSlip("B14=1000000000000000000000"), 2, "B14: 1E+21 is no tariff.",
                     "Tariffs are percentages from 0 to 100."},
        RefusedInput{"HugeTariffOfAFile", slip("add", {}), 2, "B14: 1E+300 is no tariff.",
                     "Tariffs are percentages from 0 to 100.",
                     R"({"form": "lottery", "date": "09/01/2009", "B14": 1e300})"},
        RefusedInput{"HugeTariffOfAFileOfAnEdit", slip("edit", {"-n", "000001/PPH4"}), 2, "B14: 1E+300 is no tariff.",
                     "Tariffs are percentages from 0 to 100.", R"({"B13": 5, "B14": 1e300})"},
        RefusedInput{"HugeAmountOfAFile", slip("add", {}), 2, "B13: the amount has more than 15 digits.", largestAmount,
                     R"({"form": "lottery", "date": "09/01/2009", "B13": 1e300})"},
        RefusedInput{"TaxAboveTheGross", changedSlip("B15=1001"), 2, "JmlB5: a tax of 1.001 on a gross of 1.000.",
                     seeDigits},
        RefusedInput{"TakenNumber",
                     slip("add", {"-f", "rent", "-n", "000001/PPH4", "--date", "09/01/2009", "--set", "JMLBRUTO=1"}), 1,
                     "The number 000001/PPH4 is taken: a slip of 2009 holds it.",
                     "The next free number is 000002/PPH4."},
        RefusedInput{"NoReturn",
                     {"slip", "add", "-p", "02/2009", "-f", "rent", "--date", "09/02/2009", "--set", "JMLBRUTO=1"},
                     1,
                     "There is no return 02/2009.",
                     howReturnsAreMade},
        RefusedInput{"NoReturnToEditIn",
                     {"slip", "edit", "-p", "02/2009", "-n", "000001/PPH4", "--set", "B13=1"},
                     1,
                     "There is no return 02/2009.",
                     howReturnsAreMade},
        RefusedInput{"NoReturnToRemoveFrom",
                     {"slip", "remove", "-p", "02/2009", "-n", "000001/PPH4", "--yes"},
                     1,
                     "There is no return 02/2009.",
                     howReturnsAreMade},
        RefusedInput{"NoSlipToShow", slip("show", {"-n", "000009/PPH4"}), 1,
                     "There is no slip 000009/PPH4 in the return 01/2009.", seeSlips},
        RefusedInput{"NoSlipToEdit", slip("edit", {"-n", "000009/PPH4", "--set", "B13=1"}), 1,
                     "There is no slip 000009/PPH4 in the return 01/2009.", seeSlips},
        RefusedInput{"NoSlipToRemove", slip("remove", {"-n", "000009/PPH4", "--yes"}), 1,
                     "There is no slip 000009/PPH4 in the return 01/2009.", seeSlips}),
    [](const auto& input) { return input.param.name; });

INSTANTIATE_TEST_SUITE_P(
    SelfPaidForms, Refused,
    testing::Values(
        RefusedInput{"UnknownField", newForm("Tarif=10"), 2, "The form has no field \"Tarif\" that can be set.",
                     rentFields},
        RefusedInput{"UnknownFieldOfAnEdit", changedForm("Tarif=10"), 2,
                     "The form has no field \"Tarif\" that can be set.", rentFields},
        RefusedInput{"TextInAnAmount", newForm("PPH=sepuluh"), 2, "PPH: \"sepuluh\" is no number.",
                     howNumbersAreWritten},
        RefusedInput{"TextInAnAmountOfAnEdit", changedForm("PPH=sepuluh"), 2, "PPH: \"sepuluh\" is no number.",
                     howNumbersAreWritten},
        RefusedInput{"HugeAmount", newForm("JMLBRUTO=1e300"), 2, "JMLBRUTO: \"1e300\" is no number.",
                     howNumbersAreWritten},
        RefusedInput{"HugeAmountInDigits", newForm("JMLBRUTO=1000000000000000"), 2,
                     "JMLBRUTO: the amount has more than 15 digits.", largestAmount},
        RefusedInput{"HugeAmountOfAFile", selfPaid("add", {}), 2, "PPH: the amount has more than 15 digits.",
                     largestAmount, R"({"ntpn": "78", "date": "09/01/2009", "PPH": 1e300})"},
        RefusedInput{"TaxAboveTheGross", changedForm("PPH=1001"), 2, "PPH: a tax of 1.001 on a gross of 1.000.",
                     seeDigits},
        RefusedInput{"TakenNumber",
                     selfPaid("add", {"--ntpn", "77", "--seq", "1", "--date", "09/01/2009", "--set", "PPH=1"}), 1,
                     "Payment 77 stands on a form with SEQ 1 already.", "The next free SEQ is 2."},
        RefusedInput{"NoReturn",
                     {"selfpaid", "add", "-p", "02/2009", "-f", "rent", "--ntpn", "78", "--date", "09/02/2009", "--set",
                      "PPH=1"},
                     1,
                     "There is no return 02/2009.",
                     howReturnsAreMade},
        RefusedInput{"NoReturnToEditIn",
                     {"selfpaid", "edit", "-p", "02/2009", "-f", "rent", "--ntpn", "77", "--set", "PPH=1"},
                     1,
                     "There is no return 02/2009.",
                     howReturnsAreMade},
        RefusedInput{"NoReturnToRemoveFrom",
                     {"selfpaid", "remove", "-p", "02/2009", "-f", "rent", "--ntpn", "77", "--yes"},
                     1,
                     "There is no return 02/2009.",
                     howReturnsAreMade},
        RefusedInput{"NoFormToShow", selfPaid("show", {"--ntpn", "79"}), 1,
                     "There is no form FSewaTnhBgn with payment 79 in the return 01/2009.", seeForms},
        RefusedInput{"NoFormToEdit", selfPaid("edit", {"--ntpn", "79", "--set", "PPH=1"}), 1,
                     "There is no form FSewaTnhBgn with payment 79 in the return 01/2009.", seeForms},
        RefusedInput{"NoFormToRemove", selfPaid("remove", {"--ntpn", "77", "--seq", "2", "--yes"}), 1,
                     "There is no form FSewaTnhBgn with payment 77 and SEQ 2 in the return 01/2009.", seeForms}),
    [](const auto& input) { return input.param.name; });

TEST(RefusedLine, OfAMegabyteIsToldByItsNumberAndTheRestGoesOn) {
  const StoreOfOne store;
  const std::string head = "F113321;1;2009;0;086556479946000;";
  const std::string tail =
      ";09/01/2009;;0;1000;10;100;;0;0;0;0;;0;0;0;0;;0;0;0;0;;0;0;0;0;;0;0;0;0;0;0;;0;0;0;100;;;;;\r\n";
  store.folder.write("month.csv",
                     head + std::string(1 << 20, 'x') + ";;000002/PPH4" + tail + head + "Ani;;000003/PPH4" + tail);
  const Outcome outcome = store.run({"import", store.path("month.csv"), "-p", "01/2009"});
  EXPECT_EQ(outcome.code, 3);
  const std::size_t bytes = head.size() + (1 << 20) + std::string(";;000002/PPH4").size() + tail.size() - 2;
  EXPECT_THAT(outcome.text, testing::HasSubstr("line 1: the line has " + std::to_string(bytes) +
                                               " bytes; a line of this file has at most 65535\n"));
  EXPECT_THAT(store.dump(), testing::Not(testing::HasSubstr("000002/PPH4")));
  EXPECT_THAT(store.dump(), testing::HasSubstr("000003/PPH4"));
}

}  // namespace
}  // namespace tarvola::test
