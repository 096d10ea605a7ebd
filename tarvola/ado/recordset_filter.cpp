#include <cmath>
#include <utility>

#include "tarvola/ado/recordset_state.h"
#include "tarvola/runtime/errors.h"

namespace tarvola {
namespace {

/// So few rows are walked faster than an index over them is made.
constexpr std::size_t fewRows = 16;

// Filters by state instead of by criteria. With every change sent at once, no row is ever waiting or in conflict.
constexpr std::int32_t adFilterPendingRecords = 1;
constexpr std::int32_t adFilterAffectedRecords = 2;
constexpr std::int32_t adFilterFetchedRecords = 3;
constexpr std::int32_t adFilterConflictingRecords = 5;

bool isFilterConstant(std::int32_t number) {
  return number == adFilterNone || number == adFilterPendingRecords || number == adFilterAffectedRecords ||
         number == adFilterFetchedRecords || number == adFilterConflictingRecords;
}

std::int32_t filterConstantOf(const Variant& value) {
  const bool isInteger = value.type() == Variant::Type::Integer;
  if (!isInteger && value.type() != Variant::Type::Long) fail(ErrorNumber::WrongArguments);
  const std::int32_t number = isInteger ? value.integer() : value.longInteger();
  if (!isFilterConstant(number)) fail(ErrorNumber::WrongArguments);
  return number;
}

}  // namespace

bool Recordset::State::filterShows(std::size_t row) const {
  if (filter) return filter->criteria.match(*rows, row);
  return filterConstant == adFilterNone || filterConstant == adFilterFetchedRecords;
}

void Recordset::State::findRows(std::span<const ado::RowTest> tests, std::vector<std::uint32_t>& found) {
  if (rows->count() > fewRows) return indexes.find(*rows, tests, found);
  for (std::size_t row = 0; row < rows->count(); ++row) {
    if (ado::allHold(tests, *rows, row)) found.push_back(static_cast<std::uint32_t>(row));
  }
}

// Showing all rows again costs nothing: their set was kept beside.
void Recordset::State::selectRows() {
  shown = &all;
  const bool showsAll = !filter && (filterConstant == adFilterNone || filterConstant == adFilterFetchedRecords);
  if (showsAll) return;
  std::vector<std::uint32_t>& list = matches.startList();
  if (filter) {
    const auto tests = filter->criteria.indexable();
    if (tests.empty()) {
      all.forEach([&](std::uint32_t row) {
        if (filter->criteria.match(*rows, row)) list.push_back(row);
      });
    } else {
      findRows(tests, list);
      std::erase_if(list, [this](std::uint32_t row) { return !all.shows(row); });
    }
  }
  matches.endList();
  shown = &matches;
}

// The filter lives: a row that no longer matches leaves the set, one that matches again comes back.
void Recordset::State::refreshVisibility() {
  if (shown == &all) return;
  if (filterShows(cursor.row)) {
    shown->show(cursor.slot);
  } else {
    shown->hide(cursor.slot);
  }
}

// The text is read before anything changes, so that one which is no criteria leaves the filter of before in force.
void Recordset::State::setFilterText(const std::string& criteria) {
  if (!spareFilter) spareFilter = std::make_unique<CriteriaFilter>();
  spareFilter->text.read(criteria);
  const auto replace = [this] {
    std::swap(filter, spareFilter);
    filterConstant = adFilterNone;
  };
  if (!isOpen()) return replace();
  spareFilter->criteria.bind(spareFilter->text, rows->columns());
  move([this, &replace] {
    replace();
    selectRows();
    goToFirst();
  });
}

void Recordset::State::setFilterConstant(std::int32_t constant) {
  const auto replace = [this, constant] {
    if (filter) spareFilter = std::move(filter);
    filterConstant = constant;
  };
  if (!isOpen()) return replace();
  move([this, &replace] {
    replace();
    selectRows();
    goToFirst();
  });
}

void Recordset::put_Filter(const Variant& criteria) {
  if (!criteria.isString()) return state_->setFilterConstant(filterConstantOf(criteria));
  if (criteria.string().empty()) return state_->setFilterConstant(adFilterNone);
  state_->setFilterText(criteria.string());
}

Variant Recordset::get_Filter() const {
  if (state_->isAnnouncing) return adFilterAffectedRecords;
  if (state_->filter) return state_->filter->text.text();
  return state_->filterConstant;
}

}  // namespace tarvola
