#include "tarvola/interchange/CImporSSPPBK.h"

#include <string>

#include "tarvola/interchange/payment_files.h"
#include "tarvola/interchange/payment_line.h"
#include "tarvola/interchange/payment_records.h"
#include "tarvola/mainreturn/CF113204.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/document_key.h"
#include "tarvola/store/failure_rule.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/form_codes.h"
#include "tarvola/store/statement.h"

namespace tarvola {

namespace {

using interchange::PaymentLine;
using namespace interchange::payment_columns;
using store::bare;
using store::FilerHeader;
using store::Period;
using store::Statement;
using store::text;

constexpr std::int16_t noReturn = -1;

/// The filer as PROFILE has it, without blanks around; empty texts without a row.
FilerHeader readFiler(const store::StoreObject& store) {
  FilerHeader filer = store::filerOfProfile(store.execute("SELECT * FROM PROFILE"));
  for (std::string* field : {&filer.npwp, &filer.name, &filer.address}) *field = std::string(Trim(*field));
  return filer;
}

}  // namespace

struct CImporSSPPBK::State {
  store::StoreObject store{store::StartUpWording::Description, store::StartUpConverter::None};

  enum class Takes : std::uint8_t { Payments, PaymentsAndTransfers };
  void importLine(const Variant& strData, const Period& period, Takes takes);
  void importPayment(const PaymentLine& line, const Period& period, const FilerHeader& filer);
  void importTransfer(const PaymentLine& line, const FilerHeader& filer);

  // Each of these shows its own failure and gives False or 0 then, so that a look-up that fails lets the insert run.
  bool pCekSSP(const PaymentLine& line, const Period& period);
  void pInsertSSP(const PaymentLine& line, const Period& period, const FilerHeader& filer, double tableKey);
  double pGetNextTableKey(const PaymentLine& line, const std::string& sixDigits);
  bool pCekPBK(const PaymentLine& line, const FilerHeader& filer);
  void pInsertPBK(const PaymentLine& line);

  std::int16_t highestCorrection(std::string_view kdForm, std::int16_t month, std::int16_t year);
  void updateMainReturn(std::string_view npwp, std::int16_t month, std::int16_t year);
};

// --- lines --------------------------------------------------------------------------------------------

void CImporSSPPBK::State::importLine(const Variant& strData, const Period& period, Takes takes) {
  guarded([&] {
    const PaymentLine line(strData);
    const std::string word = line.word();
    // Read for every line, so that one without a number behind the word fails whatever its kind.
    [[maybe_unused]] const std::int16_t article = line.article();
    const FilerHeader filer = readFiler(store);
    if (word == interchange::paymentWord) importPayment(line, period, filer);
    if (word == interchange::transferWord && takes == Takes::PaymentsAndTransfers) importTransfer(line, filer);
  });
}

/// Several payments without a number may stand side by side, so they are not looked for.
void CImporSSPPBK::State::importPayment(const PaymentLine& line, const Period& period, const FilerHeader& filer) {
  if (line.text(NTPP) == interchange::noPaymentNumber) {
    const double key = pGetNextTableKey(line, store::monthText(period.msPajak, period.thPajak));
    pInsertSSP(line, period, filer, key);
  } else if (!pCekSSP(line, period)) {
    pInsertSSP(line, period, filer, 0);
  }
}

void CImporSSPPBK::State::importTransfer(const PaymentLine& line, const FilerHeader& filer) {
  if (!pCekPBK(line, filer)) pInsertPBK(line);
}

// --- payments -----------------------------------------------------------------------------------------

bool CImporSSPPBK::State::pCekSSP(const PaymentLine& line, const Period& period) {
  bool isThere = false;
  guarded([&] {
    const RecordsetPtr found = store.execute(interchange::selectPayment(line, period));
    isThere = !store::isEmptyResult(found);
  });
  return isThere;
}

void CImporSSPPBK::State::pInsertSSP(const PaymentLine& line, const Period& period, const FilerHeader& filer,
                                     double tableKey) {
  guarded([&] { store.execute(interchange::insertPayment(line, period, filer.npwp, tableKey)); });
}

/// The key behind the highest of the payments without a number.
///
/// It asks with the columns that stand one to the left of those that are meant: amount for account, account for kind,
/// payment number for date. Sixteen zeros are no date, so with a line of the file this fails and the key is 0.
double CImporSSPPBK::State::pGetNextTableKey(const PaymentLine& line, const std::string& sixDigits) {
  double key = 0;
  guarded([&] {
    const RecordsetPtr found = store.open(
        Statement("SELECT MAX(TableKey) AS MAXKEY FROM DATSSP WHERE KODEPASAL = ")
        << std::int32_t{line.article()} << " AND MsPjk = " << text(sixDigits)
        << " AND KdMAP = " << text(line.text(KdMAP - 1)) << " AND KdJnsStr = " << text(line.text(KdJnsStr - 1))
        << " AND TglSSP = " << interchange::dateValue(line.text(TglSSP - 1)) << " AND NTPP = '0000000000000000'");
    if (!store::isNullField(found, "MAXKEY")) key = store::fieldNumber(found, "MAXKEY") + 1;
  });
  return key;
}

// --- transfers ----------------------------------------------------------------------------------------

bool CImporSSPPBK::State::pCekPBK(const PaymentLine& line, const FilerHeader& filer) {
  bool isThere = false;
  guarded([&] {
    const RecordsetPtr found = store.execute(interchange::selectTransfer(line, filer.npwp));
    isThere = !store::isEmptyResult(found);
  });
  return isThere;
}

void CImporSSPPBK::State::pInsertPBK(const PaymentLine& line) {
  guarded([&] { store.execute(interchange::insertTransfer(line, readFiler(store))); });
}

// --- main return --------------------------------------------------------------------------------------

std::int16_t CImporSSPPBK::State::highestCorrection(std::string_view kdForm, std::int16_t month, std::int16_t year) {
  std::int16_t highest = 0;
  guarded([&] {
    const RecordsetPtr found = store.execute(
        Statement("SELECT MAX(KD_PEMBETULAN_KE) AS iMaxKdPmb FROM DS_FORM_INDUK WHERE  MS_PAJAK = ")
        << std::int32_t{month} << " AND TH_PAJAK = " << std::int32_t{year} << " AND KD_FORM = " << text(kdForm));
    highest = store::isNullField(found, "iMaxKdPmb") ? noReturn : store::fieldInteger(found, "iMaxKdPmb");
  });
  return highest;
}

void CImporSSPPBK::State::updateMainReturn(std::string_view npwp, std::int16_t month, std::int16_t year) {
  guarded([&] {
    const std::int16_t correction = highestCorrection(store::F113204.kdForm, month, year);
    if (correction == noReturn) return;
    CF113204 mainReturn;
    mainReturn.pGetF113204(npwp, store::F113204.kdForm, store::F113204.jenisDokumen, month, year, correction,
                           store::headerNumber, store::taxKind);
    mainReturn.pHitPjk3204(1);
    const double payments = mainReturn.aJumlahSSP(npwp, CStr(std::int32_t{month}), CStr(std::int32_t{year}),
                                                  CStr(std::int32_t{correction}));
    const double transfers = mainReturn.aJumlahPBK(npwp, store::taxArticle, month, year);
    mainReturn.aC1(payments + transfers);
    mainReturn.aCHKC1(1);
    mainReturn.pUpdate();
  });
}

// --- the class ----------------------------------------------------------------------------------------

CImporSSPPBK::CImporSSPPBK() : state_(std::make_unique<State>()) {}
CImporSSPPBK::~CImporSSPPBK() { interchange::closeConnection(state_->store); }

void CImporSSPPBK::pImporSSPPBK(const Variant& strData, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorr) {
  state_->importLine(strData, {iMsPjk, iThPjk, iCorr}, State::Takes::PaymentsAndTransfers);
}

void CImporSSPPBK::pImporSSP(const Variant& strData, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorr) {
  state_->importLine(strData, {iMsPjk, iThPjk, iCorr}, State::Takes::Payments);
}

RecordsetPtr CImporSSPPBK::pGetPBK(std::string_view sNPWP, std::int16_t iPasal, std::int16_t iMsPjk,
                                   std::int16_t iThPjk) {
  RecordsetPtr transfers;
  guarded([&] { transfers = state_->store.open(interchange::selectTransfers(sNPWP, iPasal, iMsPjk, iThPjk)); });
  return transfers;
}

RecordsetPtr CImporSSPPBK::pGetSSP(std::string_view /*sNPWP*/, std::int16_t iKodePasal, std::string_view sMsPjk,
                                   std::string_view sThPjk, std::string_view sCorr) {
  RecordsetPtr payments;
  guarded([&] {
    payments = state_->store.open(
        Statement("SELECT * FROM datSSP WHERE MsPjk = ")
        << std::int32_t{CInt(sMsPjk)} << " AND THPJK=" << std::int32_t{CInt(sThPjk)}
        << " AND KODEPASAL = " << std::int32_t{iKodePasal} << " AND  KdPmbtln=" << bare(sCorr)
        << " AND KdMAP IN ( '0118', '0171', '0172', '0173','411128')"
           " AND KdJnsStr IN ( '100', '199', '300', '310', '312', '320',  '322', '401', '402', '403', '404', '405', "
           "'406', '407', '408', '409', '417', '418', '419', '499', '500','501','510','511') ORDER BY TglSSP ASC");
  });
  return payments;
}

std::int16_t CImporSSPPBK::aMaxKdPembetulan(std::string_view /*sNPWP*/, std::string_view skdform, std::int16_t iMsPjk,
                                            std::int16_t iThPjk) {
  return state_->highestCorrection(skdform, iMsPjk, iThPjk);
}

void CImporSSPPBK::pUpdateTRVPPh4(std::string_view sNPWP, std::int16_t iMsPjk, std::int16_t iThPjk) {
  state_->updateMainReturn(sNPWP, iMsPjk, iThPjk);
}

void CImporSSPPBK::pUpdateTRVPPh4_2009(std::string_view sNPWP, std::int16_t iMsPjk, std::int16_t iThPjk) {
  state_->updateMainReturn(sNPWP, iMsPjk, iThPjk);
}

}  // namespace tarvola
