#include "tarvola/lists/interest_lines.h"

#include <cstdint>

#include "tarvola/lists/attachment_rows.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::lists {

using store::number;
using store::Statement;
using store::text;

void DepositSum::add(double grossRupiah, double ratePercent, double taxRupiah) {
  line_.grossRupiah += grossRupiah;
  line_.taxRupiah += taxRupiah;
  line_.ratePercent = isEmpty_ ? ratePercent : (line_.ratePercent + ratePercent) / 2;
  isEmpty_ = false;
}

Statement interestLinesCondition(const InterestSlip& slip) {
  return Statement("NPWP = ") << text(slip.payeeNpwp) << " AND NMWP = " << text(slip.payeeName)
                              << " AND ALM = " << text(slip.payeeAddress) << " AND "
                              << store::periodCondition(slip.period) << " AND NOBUKTI = " << text(slip.noBukti);
}

void removeInterestLines(const store::StoreObject& store, const InterestSlip& slip) {
  removeRows(store, "D113210", interestLinesCondition(slip));
}

void insertInterestLine(const store::StoreObject& store, const InterestSlip& slip, std::string_view dateOfSlip,
                        const InterestLine& line) {
  if (line.grossRupiah == 0) return;
  store.execute(Statement("INSERT INTO D113210 (NPWP,NMWP,ALM,  MS_PAJAK, TH_PAJAK, KD_PEMBETULAN_KE,  TGL_POTONG, "
                          "NOBUKTI, JENIS, TEMPAT,  BRUTO,TARIF,PPH,ATR1,ATR2) VALUES  (")
                << text(slip.payeeNpwp) << "," << text(slip.payeeName) << "," << text(slip.payeeAddress) << ","
                << std::int32_t{slip.period.msPajak} << "," << std::int32_t{slip.period.thPajak} << ","
                << std::int32_t{slip.period.kdPembetulanKe} << "," << text(dateOfSlip) << "," << text(slip.noBukti)
                << "," << text(line.kind) << "," << text(line.place) << "," << number(Int(line.grossRupiah)) << ","
                << number(line.ratePercent) << "," << number(Int(line.taxRupiah)) << ",'',0)");
}

}  // namespace tarvola::lists
