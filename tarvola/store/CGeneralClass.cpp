#include "tarvola/store/CGeneralClass.h"

#include "tarvola/store/failure_rule.h"
#include "tarvola/store/module_state.h"
#include "tarvola/store/slip_numbering.h"

namespace tarvola {

CGeneralClass::CGeneralClass() : store_(store::WaitsForSettings{}, store::StartUpConverter::None) {}
CGeneralClass::~CGeneralClass() = default;

void CGeneralClass::pSetCon(std::string_view sDSN, std::string_view sUID, std::string_view sPWD) {
  guarded([&] {
    setModuleConnection(sDSN, sUID, sPWD);
    store_.startUp();
  });
}

void CGeneralClass::pExecQuery(std::string_view sSql) {
  guardedSilently([&] { store_.execute(sSql); });
}

bool CGeneralClass::pCekKoneksi(std::string_view sSql) {
  bool opened = false;
  guardedSilently([&] {
    const RecordsetPtr rows = store_.open(sSql);
    opened = true;
  });
  return opened;
}

RecordsetPtr CGeneralClass::pGetRecordDbase(std::string_view sSql) {
  RecordsetPtr rows;
  guardedSilently([&] { rows = store_.open(sSql); });
  return rows;
}

void CGeneralClass::pSet_NonNPWP_4a2(bool bVal, double) { moduleState().bNonNPWP = bVal; }

Variant CGeneralClass::pGetNoBuktiHdr(std::int16_t intPasal) {
  store::SlipNumber proposal;
  guarded([&] { store::proposeSlipNumber(store_, intPasal, proposal); });
  return Variant::Array{std::move(proposal.digits), std::move(proposal.suffix)};
}

void CGeneralClass::pUpdateNoNuktiHdr(std::int16_t intPasal, std::string_view strNoBukti) {
  guarded([&] { store::rememberSlipNumber(store_, intPasal, strNoBukti); });
}

}  // namespace tarvola
