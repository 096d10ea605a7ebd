#include "tarvola/slips/make_slip.h"

#include <array>

#include "tarvola/slips/CF113309.h"
#include "tarvola/slips/CF113310.h"
#include "tarvola/slips/CF113311.h"
#include "tarvola/slips/CF113312.h"
#include "tarvola/slips/CF113316.h"
#include "tarvola/slips/CF113317.h"
#include "tarvola/slips/CF113319.h"
#include "tarvola/slips/CF113320.h"
#include "tarvola/slips/CF113321.h"

namespace tarvola::slips {
namespace {

template <class Slip>
std::unique_ptr<SlipFrame> make() {
  return std::make_unique<Slip>();
}

struct Maker {
  const SlipDescription& description;
  std::unique_ptr<SlipFrame> (*make)();
};
constexpr std::array makers = {Maker{lotteryPrizes, make<CF113309>},
                               Maker{interest, make<CF113310>},
                               Maker{exchangeSales, make<CF113311>},
                               Maker{landRent, make<CF113312>},
                               Maker{constructionServices, make<CF113316>},
                               Maker{bonds, make<CF113317>},
                               Maker{cooperativeInterest, make<CF113319>},
                               Maker{futures, make<CF113320>},
                               Maker{dividends, make<CF113321>}};
static_assert(makers.size() == nineSlipForms.size());

}  // namespace

std::unique_ptr<SlipFrame> makeSlip(std::string_view kdForm) {
  for (const Maker& maker : makers)
    if (maker.description.form.kdForm == kdForm) return maker.make();
  return nullptr;
}

}  // namespace tarvola::slips
