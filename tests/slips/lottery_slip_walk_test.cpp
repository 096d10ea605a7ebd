#include <array>
#include <cmath>
#include <map>

#include "tarvola/runtime/text_forms.h"
#include "tests/slips/slip_store.h"
#include "tests/support/random_walk.h"

namespace tarvola::test {
namespace {

double amountUpTo(Random& random, int limit) {
  return std::uniform_int_distribution<int>(0, limit * 100)(random) / 100.0;
}

using PutAmount = void (CF113309::*)(double);
constexpr std::array<PutAmount, 6> putGross = {&CF113309::aB13, &CF113309::aB23, &CF113309::aB33,
                                               &CF113309::aB43, &CF113309::aB53, &CF113309::aB63};
constexpr std::array<PutAmount, 6> putTariff = {&CF113309::aB14, &CF113309::aB24, &CF113309::aB34,
                                                &CF113309::aB44, &CF113309::aB54, &CF113309::aB64};

struct Prizes {
  double gross = 0;
  double tax = 0;
};

/// Writes some prizes and says what the slip must come to: whole rupiah of each gross and each tax.
Prizes putSomePrizes(CF113309& slip, Random& random) {
  Prizes sums;
  for (std::size_t row = 0; row < putGross.size(); ++row) {
    const double gross = amountUpTo(random, 1'000'000);
    const double tariff = std::uniform_int_distribution<int>(0, 60)(random) / 2.0;
    (slip.*putTariff[row])(tariff);
    (slip.*putGross[row])(gross);
    sums.gross += std::floor(gross);
    sums.tax += std::floor(gross * (tariff / 100));
  }
  return sums;
}

/// The return and its list against the plain sum of all slips.
class LotteryWalk : public testing::Test {
 protected:
  void addSlip(Random& random) {
    const std::string number = CStr(++lastNumber + 100000) + "/PPH4";
    CF113309 slip;
    begin(slip, number);
    slips[number] = putSomePrizes(slip, random);
    slip.pHitPjk(1);
    slip.pUpdate();
  }
  void editSlip(Random& random) {
    const std::string number = someNumber(random);
    CF113309 slip;
    beginEdit(slip, number);
    slips[number] = putSomePrizes(slip, random);
    slip.pHitPjk(1);
    slip.pUpdate();
  }
  void deleteSlip(Random& random) {
    const std::string number = someNumber(random);
    removeSlip(number);
    slips.erase(number);
  }
  std::string someNumber(Random& random) const {
    const auto index = std::uniform_int_distribution<std::size_t>(0, slips.size() - 1)(random);
    return std::next(slips.begin(), static_cast<std::ptrdiff_t>(index))->first;
  }
  Prizes sums() const {
    Prizes all;
    for (const auto& [number, prizes] : slips) {
      all.gross += prizes.gross;
      all.tax += prizes.tax;
    }
    return all;
  }
  void check() const {
    const Prizes all = sums();
    const std::string expected = CStr(all.gross) + ";" + CStr(all.tax);
    EXPECT_EQ(store.listSums(), expected);
    EXPECT_EQ(store.ofReturn({"B43", "B45"}), expected);
    EXPECT_EQ(store.ofReturn({"C3"}), CStr(static_cast<double>(slips.size())));
    EXPECT_EQ(store.listed().size(), slips.size());
  }
  /// The list's sums, counted from its rows.
  std::string recountedList() const {
    CD113206 list;
    list.pGetD113206("", 1, 2009, 0);
    list.pHitPjk(1);
    return SlipStore::joined(list.rs4_2Hdr(), {"A6", "A7"});
  }

  SlipStore store;
  CapturedMessages messages;
  std::map<std::string, Prizes> slips;
  int lastNumber = 0;
};

TEST_F(LotteryWalk, KeepsListAndReturnEqualToThePlainSums) {
  const unsigned seed = seedOfThisRun();
  SCOPED_TRACE("TARVOLA_SEED=" + std::to_string(seed));
  Random random(seed);
  for (int step = 0; step < 150 && !HasFailure(); ++step) {
    const int kind = std::uniform_int_distribution<int>(0, 9)(random);
    if (slips.empty() || kind < 4) {
      addSlip(random);
    } else if (kind < 8) {
      editSlip(random);
    } else {
      deleteSlip(random);
    }
    check();
  }
  EXPECT_TRUE(messages.empty());
  EXPECT_EQ(store.listSums(), recountedList());
}

TEST_F(LotteryWalk, AgreesWithTheFullRecount) {
  const unsigned seed = seedOfThisRun();
  SCOPED_TRACE("TARVOLA_SEED=" + std::to_string(seed));
  Random random(seed);
  for (int step = 0; step < 20; ++step) addSlip(random);
  for (int step = 0; step < 10; ++step) editSlip(random);
  for (int step = 0; step < 5; ++step) deleteSlip(random);
  const std::initializer_list<std::string_view> moved = {"B43",   "B44",   "B45",     "C3",
                                                         "CHKC2", "CHKC3", "JMLPHSL", "JmlB5"};
  const std::string daily = store.ofReturn(moved);
  CF113204 mainReturn;
  mainReturn.pGetF113204("", "", "01", 1, 2009, 0, "", "113");
  mainReturn.pUpdF113204(1, 2009, 0);
  mainReturn.pHitPjk3204(1);
  mainReturn.pUpdate();
  EXPECT_TRUE(messages.empty());
  EXPECT_EQ(store.ofReturn(moved), daily);
}

TEST_F(LotteryWalk, LoadsEverySlipAsItWasSaved) {
  const unsigned seed = seedOfThisRun();
  SCOPED_TRACE("TARVOLA_SEED=" + std::to_string(seed));
  Random random(seed);
  const std::initializer_list<std::string_view> all = {
      "npwp",       "NmWP",    "ALM",    "MS_PAJAK", "TH_PAJAK", "KD_PEMBETULAN_KE",
      "Tgl_Potong", "NoBukti", "NPWPLT", "NMWPLT",   "ALMLT",    "B12",
      "B13",        "B15",     "B22",    "B23",      "B25",      "B32",
      "B33",        "B35",     "B42",    "B43",      "B45",      "B52",
      "B53",        "B55",     "B62",    "B63",      "B65",      "B14",
      "B24",        "B34",     "B44",    "B54",      "B64",      "JmlB5",
      "JMLPHSL",    "INVOICE"};
  const std::vector<std::string> texts = {"", "Café Ünïted", "a|b\"c\\d", "  blanks  ", "1,5", "-", "%_*?"};
  const auto someText = [&] {
    return Variant(texts[std::uniform_int_distribution<std::size_t>(0, texts.size() - 1)(random)]);
  };
  for (int time = 0; time < 30; ++time) {
    const std::string number = CStr(100000 + time) + "/PPH4";
    CF113309 slip;
    begin(slip, number);
    putSomePrizes(slip, random);
    for (const auto* field : {"B12", "B22", "B32", "B42", "B52", "B62", "NPWPLT", "NMWPLT", "ALMLT"})
      slip.put(field, someText());
    slip.aINVOICE("INV " + std::to_string(time));
    slip.pHitPjk(1);
    const std::string saved = SlipStore::joined(slip.rs4_2Form(), all);
    slip.pUpdate();
    load(slip, number);
    EXPECT_EQ(SlipStore::joined(slip.rs4_2Form(), all), saved);
    const std::string packed =
        store.row("SELECT DAT_FORM FROM DS_FORM_INDUK WHERE KD_FORM = 'F113309' AND NOBUKTI = '" + number + "'");
    EXPECT_EQ(std::count(packed.begin(), packed.end(), ';'), 37);
  }
  EXPECT_TRUE(messages.empty());
}

}  // namespace
}  // namespace tarvola::test
