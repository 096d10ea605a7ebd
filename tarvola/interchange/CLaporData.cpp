#include "tarvola/interchange/CLaporData.h"

#include "tarvola/interchange/report_texts.h"
#include "tarvola/interchange/report_writer.h"

namespace tarvola {

struct CLaporData::State {
  store::StoreObject store;
  interchange::ReportWriter writer{store};
};

CLaporData::CLaporData() : state_(std::make_unique<State>()) {}
CLaporData::~CLaporData() = default;

void CLaporData::pEksporDataTRV4_2009(std::string_view sMsPjk, std::string_view sThPjk, std::int16_t iKdPembetulan,
                                      std::string_view strFileName, std::uint8_t btStatusTRV, std::string_view sNPWP,
                                      double dJmlNKLB, std::string_view sCorr, std::string_view sSec4Hash,
                                      std::string_view sTglUpd) {
  try {
    state_->writer.write({.month = sMsPjk,
                          .year = sThPjk,
                          .correction = iKdPembetulan,
                          .fileName = strFileName,
                          .status = btStatusTRV,
                          .npwp = sNPWP,
                          .dJmlNKLB = dJmlNKLB,
                          .paymentsCorrection = sCorr,
                          .secretSource = sSec4Hash,
                          .updateDate = sTglUpd});
  } catch (...) {
    interchange::showReportFailure();
  }
}

}  // namespace tarvola
