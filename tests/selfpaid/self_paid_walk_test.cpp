// Random sequences of adds, edits, new numbers and deletes of all three kinds in one return, against plain sums.
//
// Amounts are whole and not negative and payment numbers begin with a letter: a fraction is lost in the return at every
// save, a sum of the list stops at 0, and a number of digits may be taken for another form's. Each of these has a test
// of its own.
#include <array>
#include <memory>
#include <random>

#include "tests/selfpaid/self_paid_store.h"
#include "tests/support/random_walk.h"

namespace tarvola::test {
namespace {

using Rupiah = std::int64_t;

template <class Number>
Number upTo(Random& random, Number greatest) {
  return std::uniform_int_distribution<Number>(0, greatest)(random);
}

struct Pair {
  Rupiah gross = 0;
  Rupiah tax = 0;
};
constexpr std::size_t maximumPairs = 3;
using Pairs = std::array<Pair, maximumPairs>;

struct LineNames {
  Text gross, rate, tax;
  /// Hundredths of a percent.
  Rupiah defaultRate = 0;
};

void putPairs(CPPhSewaTanahBangunan& form, const Pairs& pairs) {
  put(form, static_cast<double>(pairs[0].gross), static_cast<double>(pairs[0].tax));
}
void putPairs(CPPhAlihTnhBgn& form, const Pairs& pairs) {
  put(form, static_cast<double>(pairs[0].gross), static_cast<double>(pairs[0].tax));
}
void putPairs(CPPhJasaKonstruksi& form, const Pairs& pairs) {
  form.ajmlBruto1(static_cast<double>(pairs[0].gross));
  form.aPPH1(static_cast<double>(pairs[0].tax));
  form.ajmlBruto2(static_cast<double>(pairs[1].gross));
  form.aPPH2(static_cast<double>(pairs[1].tax));
  form.ajmlBruto3(static_cast<double>(pairs[2].gross));
  form.aPPH3(static_cast<double>(pairs[2].tax));
}

template <class Form>
const std::vector<LineNames> lines;
template <>
const std::vector<LineNames> lines<CPPhSewaTanahBangunan> = {{"B5b3", "B5b4", "B5b5", 1000}};
template <>
const std::vector<LineNames> lines<CPPhAlihTnhBgn> = {{"B73", "B74", "B75", 0}};
template <>
const std::vector<LineNames> lines<CPPhJasaKonstruksi> = {
    {"B6a23", "B6a24", "B6a25", 500}, {"B6b23", "B6b24", "B6b25", 300}, {"B6c23", "B6c24", "B6c25", 500}};

/// Hundredths of a percent, by whole numbers alone: rounded to three decimals, then cut to two.
Rupiah averageRate(const Pair& sum) {
  const Rupiah thousandths = (2 * sum.tax * 100'000 + sum.gross) / (2 * sum.gross);
  return thousandths / 10;
}

/// One kind of form in a walk: the forms that should be there, and how to change them.
class Walker {
 public:
  virtual ~Walker() = default;
  virtual void step(Random& random) = 0;
  virtual void check(const SelfPaidStore& store) const = 0;
  virtual void checkAgainst(const RecordsetPtr& returnRow) const = 0;
};

template <class Form>
class WalkerOf final : public Walker {
 public:
  void step(Random& random) override {
    const int choice = upTo(random, 9);
    if (held_.empty() || choice < 3) return addForm(random);
    if (choice < 5) return addFormBeside(random);
    if (choice < 7) return editForm(random);
    if (choice < 8) return renumberForm(random);
    deleteForm(random);
  }

  void check(const SelfPaidStore& store) const override {
    Pair all;
    for (const Held& form : held_)
      for (const Pair& pair : form.pairs) all = {all.gross + pair.gross, all.tax + pair.tax};
    EXPECT_EQ(store.listSums(Kind<Form>::list), std::to_string(all.gross) + ";" + std::to_string(all.tax));
    EXPECT_THAT(listRows(store), testing::UnorderedElementsAreArray(listTexts()));
    EXPECT_EQ(store.forms(Kind<Form>::form).size(), held_.size());
    checkLines(store);
  }

  /// A recount must find the amounts that the differences have led to.
  void checkAgainst(const RecordsetPtr& returnRow) const override {
    for (std::size_t index = 0; index < lines<Form>.size(); ++index) {
      EXPECT_EQ(store::fieldNumber(returnRow, lines<Form>[index].gross), static_cast<double>(sumOf(index).gross));
      EXPECT_EQ(store::fieldNumber(returnRow, lines<Form>[index].tax), static_cast<double>(sumOf(index).tax));
    }
  }

 private:
  struct Held {
    std::string number;
    int seq = 0;
    Pairs pairs;
  };

  static Pairs somePairs(Random& random) {
    Pairs pairs;
    for (std::size_t index = 0; index < lines<Form>.size(); ++index) {
      pairs[index].gross = upTo<Rupiah>(random, 3) == 0 ? 0 : upTo<Rupiah>(random, 1'000'000);
      pairs[index].tax = upTo<Rupiah>(random, pairs[index].gross);
    }
    return pairs;
  }
  Held& someForm(Random& random) { return held_[upTo<std::size_t>(random, held_.size() - 1)]; }
  /// One more than the greatest SEQ that the list holds; the library must say the same.
  int nextSeq(Form& form) const {
    int greatest = 0;
    for (const Held& one : held_) greatest = std::max(greatest, one.seq);
    for (const Held& one : leftBehind_) greatest = std::max(greatest, one.seq);
    EXPECT_EQ(form.pGetMaxSeqNo(1, 2009, 0, 0), greatest + 1);
    return greatest + 1;
  }

  void addForm(Random& random) {
    Form form;
    held_.push_back({.number = "N" + std::to_string(++lastNumber_), .seq = nextSeq(form), .pairs = somePairs(random)});
    const Held& added = held_.back();
    begin(form, added.number, added.seq);
    putPairs(form, added.pairs);
    save(form);
  }

  void addFormBeside(Random& random) {
    Form form;
    const Held existing = someForm(random);
    held_.push_back({.number = existing.number, .seq = nextSeq(form), .pairs = somePairs(random)});
    load(form, existing.number, existing.seq);
    form.pAssignStatus(true, false, false);
    form.aSEQ(held_.back().seq);
    putPairs(form, held_.back().pairs);
    save(form);
  }

  void editForm(Random& random) {
    Held& held = someForm(random);
    held.pairs = somePairs(random);
    Form form;
    beginEdit(form, held.number, held.seq);
    putPairs(form, held.pairs);
    save(form);
  }

  /// A form that gets another payment number leaves its old list row behind, which no sum counts.
  void renumberForm(Random& random) {
    Held& held = someForm(random);
    leftBehind_.push_back(held);
    Form form;
    beginEdit(form, held.number, held.seq);
    held.number = "N" + std::to_string(++lastNumber_);
    form.aNTTP(held.number);
    save(form);
  }

  void deleteForm(Random& random) {
    const std::size_t index = upTo<std::size_t>(random, held_.size() - 1);
    remove<Form>(held_[index].number, held_[index].seq);
    held_.erase(held_.begin() + static_cast<std::ptrdiff_t>(index));
  }

  Pair sumOf(std::size_t pairIndex) const {
    Pair sum;
    for (const Held& form : held_) sum = {sum.gross + form.pairs[pairIndex].gross, sum.tax + form.pairs[pairIndex].tax};
    return sum;
  }

  /// "SEQ|NOBUKTI|gross;tax" of each list row that should be there.
  std::vector<std::string> listTexts() const {
    std::vector<std::string> texts;
    std::vector<Held> listed = held_;
    listed.insert(listed.end(), leftBehind_.begin(), leftBehind_.end());
    for (const Held& form : listed) {
      Pair sum;
      for (const Pair& pair : form.pairs) sum = {sum.gross + pair.gross, sum.tax + pair.tax};
      texts.push_back(std::to_string(form.seq) + "|" + form.number + "|" + std::to_string(sum.gross) + ";" +
                      std::to_string(sum.tax));
    }
    return texts;
  }
  /// The same of the rows that are there, without what stands before and behind the amounts in the packed text.
  static std::vector<std::string> listRows(const SelfPaidStore& store) {
    std::vector<std::string> texts;
    for (const std::string& row : store.rows("SELECT SEQ, NOBUKTI, DAT_FORM FROM LAMPIRAN_SSP_PPh22 WHERE KD_FORM = '" +
                                             std::string(Kind<Form>::list) + "'")) {
      const std::size_t packed = row.rfind('|') + 1;
      std::array<std::size_t, 5> ends{};
      std::size_t start = packed;
      for (std::size_t& end : ends) start = (end = row.find(';', start)) + 1;
      texts.push_back(row.substr(0, packed) + row.substr(ends[2] + 1, ends[4] - ends[2] - 1));
    }
    return texts;
  }

  void checkLines(const SelfPaidStore& store) const {
    for (std::size_t index = 0; index < lines<Form>.size(); ++index) {
      const LineNames& names = lines<Form>[index];
      const Pair sum = sumOf(index);
      const Rupiah rate = sum.gross == 0 ? names.defaultRate : averageRate(sum);
      // The rate of a line follows when one of its kind is saved, so that a fresh return still has none.
      const bool touched = lastNumber_ > 0;
      EXPECT_EQ(store.ofReturn({names.gross, names.rate, names.tax}),
                std::to_string(sum.gross) + ";" + (touched ? CStr(static_cast<double>(rate) / 100) : "0") + ";" +
                    std::to_string(sum.tax));
    }
  }

  std::vector<Held> held_;
  std::vector<Held> leftBehind_;
  int lastNumber_ = 0;
};

TEST(SelfPaidWalk, KeepsListsAndReturnEqualToThePlainSumsOfTheForms) {
  const unsigned seed = seedOfThisRun();
  SCOPED_TRACE("TARVOLA_SEED=" + std::to_string(seed));
  Random random(seed);
  SelfPaidStore store;
  CapturedMessages messages;
  std::array<std::unique_ptr<Walker>, 3> walkers = {std::make_unique<WalkerOf<CPPhSewaTanahBangunan>>(),
                                                    std::make_unique<WalkerOf<CPPhAlihTnhBgn>>(),
                                                    std::make_unique<WalkerOf<CPPhJasaKonstruksi>>()};
  constexpr int steps = 120;
  for (int step = 0; step < steps; ++step) {
    walkers[upTo<std::size_t>(random, walkers.size() - 1)]->step(random);
    for (const auto& walker : walkers) walker->check(store);
    if (testing::Test::HasFailure()) FAIL() << "step " << step;
  }
  CF113204 mainReturn;
  mainReturn.pGetF113204("", "", "01", 1, 2009, 0, "", "113");
  mainReturn.pUpdF113204(1, 2009, 0);
  for (const auto& walker : walkers) walker->checkAgainst(mainReturn.rs4_2Form());
  EXPECT_THAT(messages.texts(), testing::IsEmpty());
}

}  // namespace
}  // namespace tarvola::test
