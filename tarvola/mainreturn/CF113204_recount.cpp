#include "tarvola/mainreturn/CF113204.h"
#include "tarvola/mainreturn/roll_up.h"
#include "tarvola/store/failure_rule.h"
#include "tarvola/store/field_access.h"

namespace tarvola {
namespace {

constexpr std::int16_t marked = 1;
constexpr std::int16_t notMarked = 0;

}  // namespace

void CF113204::pUpdF113204(std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iKdPemb) {
  guarded([&] {
    const store::Period period{.msPajak = iMsPjk, .thPajak = iThPjk, .kdPembetulanKe = iKdPemb};
    mainreturn::RollUp rollUp(store_, form_, period, interest_);
    rollUp.run();
    // The recount has left the slips of its first six forms in C3; all nine forms count.
    const double slipCount = aJumlahBP(rollUp.npwp(), iKdPemb, iMsPjk, iThPjk);
    store::setField(form_, "C3", slipCount);
    store::setField(form_, "CHKC2", slipCount > 0 ? marked : notMarked);
    // Without slips CHKC3 stays: a person may have set it.
    if (slipCount > 0) store::setField(form_, "CHKC3", marked);
  });
}

}  // namespace tarvola
