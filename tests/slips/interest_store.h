#pragma once

#include <string>
#include <string_view>

#include "tarvola/slips/CF113310.h"
#include "tests/slips/slip_store.h"

namespace tarvola::test {

inline constexpr std::string_view number = "000001/PPH4";

class InterestStore : public SlipStore {
 public:
  /// Columns of the only interest slip.
  [[nodiscard]] std::string slipColumn(std::string_view names) const {
    return row("SELECT " + std::string(names) + " FROM DS_FORM_INDUK WHERE KD_FORM = 'F113310'");
  }
  /// "JENIS|TEMPAT|BRUTO|TARIF|PPH" of the interest lines, in the order in which they were written.
  [[nodiscard]] std::vector<std::string> lines() const {
    return rows("SELECT JENIS, TEMPAT, BRUTO, TARIF, PPH FROM D113210");
  }
  /// The fifteen sums of the stored list of interest.
  [[nodiscard]] std::string interestSums() const {
    const std::string packed = row("SELECT DAT_FORM FROM DS_FORM_INDUK WHERE KD_FORM = 'D113210'");
    std::size_t start = 0;
    for (int field = 0; field < 6; ++field) start = packed.find(';', start) + 1;
    return packed.substr(start);
  }
};

/// Sets both options of a row of deposits, counted from 1.
inline void setSide(CF113310& slip, int row, std::int16_t domestic, std::int16_t foreign) {
  slip.put("OPTDN" + std::to_string(row), domestic);
  slip.put("OPTLN" + std::to_string(row), foreign);
}

}  // namespace tarvola::test
