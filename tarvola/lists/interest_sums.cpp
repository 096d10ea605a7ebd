#include "tarvola/lists/interest_sums.h"

#include "tarvola/store/field_access.h"
#include "tarvola/store/form_codes.h"
#include "tarvola/store/packed_row.h"
#include "tarvola/store/statement.h"

namespace tarvola::lists {
namespace {

using store::name;
using store::Statement;
using store::text;

Statement linesOf(const InterestKind& kind, const store::Period& period) {
  return Statement(" FROM D113210  WHERE ") << store::periodCondition(period) << " AND JENIS=" << text(kind.kind);
}

}  // namespace

double countPayees(const store::StoreObject& store, const InterestKind& kind, const store::Period& period) {
  const RecordsetPtr count =
      store.execute(Statement("SELECT COUNT(J) as ")
                    << name(kind.payees) << " FROM ( SELECT DISTINCT(NPWP) as J" << linesOf(kind, period) << ") ; ");
  return store::fieldNumber(count, kind.payees);
}

InterestSums sumInterest(const store::StoreObject& store, const InterestKind& kind, const store::Period& period) {
  const RecordsetPtr sums =
      store.execute(Statement(" SELECT sum(BRUTO) as ")
                    << name(kind.gross) << ", sum(PPh) as " << name(kind.tax) << linesOf(kind, period) << " ; ");
  return {.grossRupiah = store::fieldNumberOr(sums, kind.gross, 0),
          .taxRupiah = store::fieldNumberOr(sums, kind.tax, 0)};
}

std::string rewriteInterestHeader(const store::StoreObject& store, const store::FilerHeader& filer,
                                  const store::Period& period) {
  store::PackedRow packed(store::packedHead(filer, period));
  double allPayees = 0;
  InterestSums all;
  for (const InterestKind& kind : interestKinds) {
    const double payees = countPayees(store, kind, period);
    const InterestSums sums = sumInterest(store, kind, period);
    packed.amount(payees).amount(sums.grossRupiah).amount(sums.taxRupiah);
    allPayees += payees;
    all.grossRupiah += sums.grossRupiah;
    all.taxRupiah += sums.taxRupiah;
  }
  packed.amount(allPayees).amount(all.grossRupiah).amount(all.taxRupiah);
  store.execute(Statement(" UPDATE DS_FORM_INDUK SET DAT_FORM=")
                << text(packed.str()) << " WHERE   NPWP = " << text(filer.npwp)
                << " AND KD_FORM = " << text(store::D113210.kdForm) << " AND " << store::periodCondition(period)
                << " AND JENIS_DOKUMEN = " << text(store::D113210.jenisDokumen)
                << " AND NOBUKTI = " << text(store::headerNumber) << " ;");
  return packed.str();
}

}  // namespace tarvola::lists
