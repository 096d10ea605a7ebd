#include <gtest/gtest.h>

#include <optional>
#include <random>

#include "tests/ado/recordset_fixture.h"

namespace tarvola {
namespace {

using test::errorOf;
using test::number;
using test::StockStore;

constexpr std::int32_t noRow = static_cast<std::int32_t>(ErrorNumber::NoCurrentRecord);
constexpr std::int32_t deadRow = static_cast<std::int32_t>(ErrorNumber::RowDeleted);

/// A recordset as simply as one can write it: a list of rows, each with the two flags that it may have.
class Model {
 public:
  struct Row {
    std::string name;
    std::int32_t size = 0;
    bool isRemoved = false;
  };

  std::vector<Row> rows;
  std::optional<std::string> filter;
  /// The row on which the cursor stands; -1 in front of all, rows.size() behind them.
  int at = 0;

  [[nodiscard]] bool shows(int row) const {
    const Row& one = rows[static_cast<std::size_t>(row)];
    return !one.isRemoved && (!filter || one.name == *filter);
  }
  [[nodiscard]] std::vector<int> shown() const {
    std::vector<int> list;
    for (int row = 0; row < static_cast<int>(rows.size()); ++row) {
      if (shows(row)) list.push_back(row);
    }
    return list;
  }
  [[nodiscard]] bool isInside() const { return at >= 0 && at < static_cast<int>(rows.size()); }
  [[nodiscard]] Row& here() { return rows[static_cast<std::size_t>(at)]; }
  [[nodiscard]] bool isOnLiveRow() { return isInside() && !here().isRemoved; }

  void toEnds() { at = shown().empty() ? static_cast<int>(rows.size()) : shown().front(); }

  std::int32_t moveTo(int position) {
    const std::vector<int> list = shown();
    if (position < 0) {
      at = -1;
    } else {
      at = position < static_cast<int>(list.size()) ? list[static_cast<std::size_t>(position)]
                                                    : static_cast<int>(rows.size());
    }
    return 0;
  }

  std::int32_t moveFrom(int base, int count) {
    if (shown().empty()) {
      at = static_cast<int>(rows.size());
      return noRow;
    }
    return moveTo(base + count);
  }

  std::int32_t move(int count) {
    const std::vector<int> list = shown();
    if (at < 0) return count <= 0 ? noRow : moveFrom(-1, count);
    if (!isInside()) return count >= 0 ? noRow : moveFrom(static_cast<int>(list.size()), count);
    if (count == 0) return here().isRemoved ? deadRow : 0;
    int inFront = 0;
    while (inFront < static_cast<int>(list.size()) && list[static_cast<std::size_t>(inFront)] < at) ++inFront;
    const bool isGap = !shows(at);
    return moveTo(inFront + count - (isGap && count > 0 ? 1 : 0));
  }
};

std::string nameOf(std::uint_fast32_t choice) { return std::string(1, static_cast<char>('a' + choice % 4)); }

/// Steps that do the same to the recordset and to the model.
class Walk {
 public:
  Walk(RecordsetPtr recordset, Model model, unsigned seed)
      : recordset_(std::move(recordset)), model_(std::move(model)), random_(seed) {
    model_.toEnds();
  }

  void step() {
    switch (random_() % 10) {
      case 0:
        return expect([&] { recordset_->MoveFirst(); }, model_.moveFrom(0, 0));
      case 1:
        return expect([&] { recordset_->MoveLast(); }, model_.moveFrom(static_cast<int>(model_.shown().size()), -1));
      case 2:
      case 3:
        return expect([&] { recordset_->MoveNext(); }, model_.move(1));
      case 4:
        return expect([&] { recordset_->MovePrevious(); }, model_.move(-1));
      case 5:
        return moveByCount();
      case 6:
        return setFilter();
      case 7:
        return add();
      case 8:
        return remove();
      default:
        return change();
    }
  }

  void compare() {
    const std::vector<int> shown = model_.shown();
    ASSERT_EQ(recordset_->get_RecordCount(), static_cast<std::int32_t>(shown.size()));
    const std::vector<std::size_t> visible = recordset_->visibleRows();
    ASSERT_EQ(visible.size(), shown.size());
    for (std::size_t i = 0; i < shown.size(); ++i) {
      const Model::Row& row = model_.rows[static_cast<std::size_t>(shown[i])];
      ASSERT_EQ(recordset_->rows()->cell(visible[i], 0).text(), row.name);
      ASSERT_EQ(recordset_->rows()->cell(visible[i], 1).toDouble(), row.size);
    }
    ASSERT_EQ(recordset_->get_BOF(), model_.at < 0 || (!model_.isInside() && shown.empty()));
    ASSERT_EQ(recordset_->get_EOF(), !model_.isInside() && (model_.at >= 0 || shown.empty()));
    const std::int32_t expected = !model_.isInside() ? noRow : model_.here().isRemoved ? deadRow : 0;
    ASSERT_EQ(errorOf([&] { static_cast<void>(recordset_->cell(0)); }), expected);
    if (expected != 0) return;
    ASSERT_EQ(recordset_->cell(1).toDouble(), model_.here().size);
  }

  [[nodiscard]] std::string remaining() const {
    std::string text;
    for (const Model::Row& row : model_.rows) {
      if (!row.isRemoved) text += row.name + "," + std::to_string(row.size) + "|";
    }
    return text;
  }

 private:
  template <class Action>
  void expect(Action action, std::int32_t error) {
    ASSERT_EQ(errorOf(action), error);
  }

  void moveByCount() {
    const int count = static_cast<int>(random_() % 9) - 4;
    switch (random_() % 3) {
      case 0:
        return expect([&] { recordset_->Move(count); }, model_.move(count));
      case 1:
        return expect([&] { recordset_->Move(count, adBookmarkFirst); }, model_.moveFrom(0, count));
      default:
        return expect([&] { recordset_->Move(count, adBookmarkLast); },
                      model_.moveFrom(static_cast<int>(model_.shown().size()) - 1, count));
    }
  }

  void setFilter() {
    model_.filter.reset();
    if (random_() % 3 != 0) model_.filter = nameOf(random_());
    recordset_->put_Filter(model_.filter ? "NAME = '" + *model_.filter + "'" : "");
    model_.toEnds();
  }

  void add() {
    recordset_->AddNew();
    Model::Row row{.name = nameOf(random_()), .size = ++lastSize_};
    recordset_->put_Collect("SIZE", row.size);
    if (random_() % 4 == 0) return recordset_->CancelUpdate();
    recordset_->put_Collect("NAME", row.name);
    recordset_->Update();
    model_.rows.push_back(std::move(row));
    model_.at = static_cast<int>(model_.rows.size()) - 1;
  }

  void remove() {
    if (!model_.isOnLiveRow()) {
      return expect([&] { recordset_->Delete(); }, model_.isInside() ? deadRow : noRow);
    }
    recordset_->Delete();
    model_.here().isRemoved = true;
  }

  void change() {
    if (!model_.isOnLiveRow()) return;
    const std::string name = nameOf(random_());
    recordset_->put_Collect("NAME", name);
    if (random_() % 4 == 0) return recordset_->CancelUpdate();
    recordset_->Update();
    model_.here().name = name;
  }

  RecordsetPtr recordset_;
  Model model_;
  std::mt19937 random_;
  std::int32_t lastSize_ = 1000;
};

Model modelOf(std::size_t count) {
  Model model;
  for (std::size_t i = 0; i < count; ++i) {
    model.rows.push_back({.name = nameOf(i * i + i), .size = static_cast<std::int32_t>(i)});
  }
  return model;
}

TEST(RecordsetWalk, InMemoryAgreesWithASimpleModel) {
  const unsigned seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  for (unsigned round = 0; round < 40; ++round) {
    const Model model = modelOf(round);
    const auto rows = test::namedSizes({});
    for (const Model::Row& row : model.rows) {
      const std::size_t place = rows->append();
      rows->set(place, 0, row.name);
      rows->set(place, 1, row.size);
    }
    Walk walk(Recordset::over(rows), model, seed + round);
    for (int step = 0; step < 200; ++step) {
      walk.step();
      walk.compare();
      if (testing::Test::HasFatalFailure()) FAIL() << "round " << round << ", step " << step;
    }
  }
}

TEST(RecordsetWalk, OverAStoreAgreesWithASimpleModelAndLeavesItsRowsThere) {
  const unsigned seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  for (unsigned round = 0; round < 4; ++round) {
    const StockStore store;
    const Model model = modelOf(round * 8);
    for (const Model::Row& row : model.rows) {
      store.run("INSERT INTO GOODS (NAME, SIZE) VALUES ('" + row.name + "', " + std::to_string(row.size) + ")");
    }
    Walk walk(store.open("SELECT NAME, SIZE FROM GOODS"), model, seed + round);
    for (int step = 0; step < 150; ++step) {
      walk.step();
      walk.compare();
      if (testing::Test::HasFatalFailure()) FAIL() << "round " << round << ", step " << step;
    }
    EXPECT_EQ(store.stored("SELECT NAME, SIZE FROM GOODS"), walk.remaining());
  }
}

}  // namespace
}  // namespace tarvola
