#include "tarvola/mainreturn/CF113204.h"
#include "tarvola/mainreturn/payment_count.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/document_key.h"
#include "tarvola/store/failure_rule.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/form_codes.h"
#include "tarvola/store/statement.h"

namespace tarvola {
namespace {

using store::bare;
using store::Statement;

double rowCount(const RecordsetPtr& rows) { return store::isEmptyResult(rows) ? 0 : rows->get_RecordCount(); }

/// The sum of a column. A Null in it is error 94: a record without an amount must not pass for one of 0 rupiah.
double sumOfColumn(const RecordsetPtr& rows, std::string_view name) {
  double sum = 0;
  if (store::isEmptyResult(rows)) return sum;
  const std::size_t column = rows->column(name);
  for (rows->MoveFirst(); !rows->get_EOF(); rows->MoveNext()) sum += rows->cell(column).toDouble();
  return sum;
}

Statement transferSelection(std::int16_t article, std::int16_t month, std::int16_t year) {
  return Statement("SELECT * FROM datPBKPPhMasa WHERE PASAL = ")
         << std::int32_t{article} << " AND MsPjkPBK = " << std::int32_t{month}
         << " AND ThPjkPBK = " << std::int32_t{year};
}

}  // namespace

double CF113204::aJumlahSSP(std::string_view /*sNPWP*/, std::string_view sMsPjk, std::string_view sThPjk,
                            std::string_view sCorr) {
  double count = 0;
  guarded([&] {
    count = rowCount(store_.execute(Statement("SELECT * FROM datSSP WHERE MsPjk = ")
                                    << std::int32_t{CInt(sMsPjk)}
                                    << " AND KODEPASAL = 4 AND ThPjk = " << std::int32_t{CInt(sThPjk)}
                                    << " AND KdPmbtln = " << std::int32_t{CInt(sCorr)} << " ORDER BY TglSSP ASC"));
  });
  return count;
}

double CF113204::aJumlahPBK(std::string_view /*sNPWP*/, std::int16_t iPasal, std::int16_t iMsPjk, std::int16_t iThPjk) {
  double count = 0;
  guarded([&] { count = rowCount(store_.execute(transferSelection(iPasal, iMsPjk, iThPjk))); });
  return count;
}

double CF113204::aJumlahBP(std::string_view /*sNPWP*/, std::int16_t iKdPemb, std::int16_t iMsPjk, std::int16_t iThPjk) {
  double count = 0;
  guarded([&] {
    // The store counts: the rows themselves would be the whole return.
    const RecordsetPtr slips = store_.execute(
        Statement("SELECT COUNT(*) AS JML FROM DS_FORM_INDUK WHERE MS_PAJAK = ")
        << std::int32_t{iMsPjk} << " AND TH_PAJAK = " << std::int32_t{iThPjk}
        << " AND KD_PEMBETULAN_KE = " << std::int32_t{iKdPemb}
        << " AND (KD_FORM = 'F113309' OR KD_FORM = 'F113310' OR KD_FORM = 'F113311' OR KD_FORM = 'F113312' OR "
           "KD_FORM = 'F113316' OR KD_FORM = 'F113317' OR KD_FORM = 'F113319' OR KD_FORM = 'F113320' OR "
           "KD_FORM = 'F113321')");
    count = store::fieldNumber(slips, "JML");
  });
  return count;
}

double CF113204::aTotalNominalSSP(std::string_view /*sNPWP*/, std::string_view sMsPjk, std::string_view sThPjk,
                                  std::string_view sCorr) {
  double rupiah = 0;
  guarded([&] {
    rupiah = sumOfColumn(store_.execute(Statement("SELECT * FROM datSSP WHERE MsPjk = ")
                                        << bare(sMsPjk) << " AND THPJK=" << bare(sThPjk)
                                        << " AND KODEPASAL = 4 AND KdPmbtln=" << bare(sCorr) << " ORDER BY TglSSP ASC"),
                         "JmlByr");
  });
  return rupiah;
}

double CF113204::aTotalNominalPBK(std::string_view /*sNPWP*/, std::int16_t iPasal, std::int16_t iMsPjk,
                                  std::int16_t iThPjk) {
  double rupiah = 0;
  guarded([&] { rupiah = sumOfColumn(store_.execute(transferSelection(iPasal, iMsPjk, iThPjk)), "JumlahPBK"); });
  return rupiah;
}

double mainreturn::aJumlahSSPPasal(const store::StoreObject& store, std::int16_t iPasal, const store::Period& period) {
  Statement selection("SELECT count(NPWP) as JmlSSP FROM datSSP WHERE MsPjk = ");
  selection << std::int32_t{period.msPajak} << " AND ThPjk = " << std::int32_t{period.thPajak}
            << " And KODEPASAL = " << std::int32_t{iPasal} << " AND KdPmbtln = " << std::int32_t{period.kdPembetulanKe};
  if (iPasal == store::taxArticle) {
    selection << " AND KdMAP IN ( '0118', '0171', '0172', '0173','411128')"
                 " AND KdJnsStr IN ( '100', '199', '300', '310', '312', '320', '322', '401',"
                 " '402', '403', '404', '405', '406', '407', '408', '409', '416', '390','417','418','419')";
  }
  const RecordsetPtr counted = store.execute(selection << " ORDER BY datSSP.TglSSP ASC");
  return store::isEmptyResult(counted) ? 0 : store::fieldNumber(counted, "JmlSSP");
}

}  // namespace tarvola
