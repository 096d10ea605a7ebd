#include "tarvola/store/return_directory.h"

#include <algorithm>

#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/return_kinds.h"

namespace tarvola::store {
namespace {

constexpr std::string_view exchangeList = "D113207";
constexpr std::int16_t noReturn = -1;

/// " AND (KD_FORM = 'F113309' OR ...)" of an article; nothing for one without slip forms.
Statement slipFormsCondition(std::int16_t article) {
  const auto found = std::find_if(slipFormsOfArticles.begin(), slipFormsOfArticles.end(),
                                  [article](const SlipFormsOfArticle& entry) { return entry.article == article; });
  Statement condition("");
  if (found != slipFormsOfArticles.end()) condition << " AND " << anyFormCondition(found->forms);
  return condition;
}

}  // namespace

Statement kindCondition(FixedText column, std::string_view kdJenisPajak) {
  const ReturnKind* kind = findReturnKind(kdJenisPajak);
  Statement condition("(");
  condition << column << " = " << text(kdJenisPajak);
  if (kind != nullptr && kind->hasSharedDocuments) condition << " OR " << column << " = " << text(sharedKind);
  return condition << ")";
}

Statement anyFormCondition(std::span<const std::string_view> forms) {
  Statement condition("(");
  bool isFirst = true;
  for (const std::string_view form : forms) {
    if (form.empty()) continue;
    if (!isFirst) condition << " OR ";
    condition << "KD_FORM = " << text(form);
    isFirst = false;
  }
  return condition << ")";
}

RecordsetPtr listDocuments(const StoreObject& store, std::string_view kdJenisPajak, const Period& period) {
  return store.execute(
      Statement("SELECT DISTINCT DS_FORM_INDUK.MS_PAJAK, DS_FORM_INDUK.TH_PAJAK, "
                "DS_FORM_INDUK.KD_PEMBETULAN_KE, DS_REF_JENIS_PAJAK.URAIAN, "
                "DS_FORM_INDUK.KD_FORM, DS_FORM_INDUK.JENIS_DOKUMEN, DS_FORM_INDUK.NOBUKTI "
                "FROM DS_FORM_INDUK INNER JOIN DS_REF_JENIS_PAJAK ON "
                "(DS_FORM_INDUK.KD_JENIS_PAJAK = DS_REF_JENIS_PAJAK.KD_JENIS_PAJAK) AND "
                "(DS_FORM_INDUK.JENIS_DOKUMEN = DS_REF_JENIS_PAJAK.KD_DOK_TRV) WHERE ")
      << kindCondition("DS_FORM_INDUK.KD_JENIS_PAJAK", kdJenisPajak) << " AND DS_FORM_INDUK.TH_PAJAK = "
      << std::int32_t{period.thPajak} << " AND DS_FORM_INDUK.KD_PEMBETULAN_KE = " << std::int32_t{period.kdPembetulanKe}
      << " AND DS_FORM_INDUK.MS_PAJAK = " << std::int32_t{period.msPajak}
      << " ORDER BY DS_FORM_INDUK.KD_FORM ASC, DS_FORM_INDUK.JENIS_DOKUMEN ASC, DS_FORM_INDUK.NOBUKTI ASC");
}

RecordsetPtr listSelfPaidDocuments(const StoreObject& store, std::string_view kdJenisPajak, const Period& period) {
  return store.execute(
      Statement("SELECT DS_REF_JENIS_PAJAK.URAIAN, DAT_SSP_PPh22.KD_FORM, DAT_SSP_PPh22.JENIS_DOKUMEN, "
                "DAT_SSP_PPh22.NOBUKTI FROM DAT_SSP_PPh22 INNER JOIN DS_REF_JENIS_PAJAK ON "
                "(DAT_SSP_PPh22.KD_JENIS_PAJAK = DS_REF_JENIS_PAJAK.KD_JENIS_PAJAK) AND "
                "(DAT_SSP_PPh22.JENIS_DOKUMEN = DS_REF_JENIS_PAJAK.KD_DOK_TRV) WHERE ")
      << kindCondition("DAT_SSP_PPh22.KD_JENIS_PAJAK", kdJenisPajak) << " AND " << periodCondition(period)
      << " ORDER BY DAT_SSP_PPh22.KD_FORM ASC, DAT_SSP_PPh22.JENIS_DOKUMEN ASC, DAT_SSP_PPh22.NOBUKTI ASC");
}

std::int16_t highestCorrection(const StoreObject& store, std::string_view kdJenisPajak, std::string_view kdForm,
                               std::int16_t month, std::int16_t year) {
  const RecordsetPtr found =
      store.execute(Statement("SELECT MAX(KD_PEMBETULAN_KE) AS iMaxKdPmb FROM DS_FORM_INDUK WHERE KD_JENIS_PAJAK = ")
                    << text(kdJenisPajak) << " AND MS_PAJAK = " << std::int32_t{month}
                    << " AND TH_PAJAK = " << std::int32_t{year} << " AND KD_FORM = " << text(kdForm));
  return isNullField(found, "iMaxKdPmb") ? noReturn : fieldInteger(found, "iMaxKdPmb");
}

std::string formOfNumber(const StoreObject& store, std::string_view noBukti, const Period& period,
                         std::int16_t article) {
  const RecordsetPtr found =
      store.execute(Statement("SELECT * FROM DS_FORM_INDUK WHERE NOBUKTI = ")
                    << text(noBukti) << " AND " << periodCondition(period) << slipFormsCondition(article));
  return found->get_RecordCount() == 1 ? fieldText(found, "KD_FORM") : std::string();
}

RecordsetPtr findPartner(const StoreObject& store, std::string_view npwp) {
  return store.execute(
      Statement("SELECT NPWP_PARTNER, NAMA_WP_PARTNER,ALAMAT_PARTNER FROM PARTNER_INFO WHERE NPWP_PARTNER = ")
      << text(npwp));
}

RecordsetPtr listExchanges(const StoreObject& store, const Period& period) {
  const RecordsetPtr rows = store.open(Statement("SELECT * FROM DS_FORM_INDUK WHERE ( KD_FORM = ")
                                       << text(exchangeList) << " AND " << periodCondition(period) << ")");
  return DatFormConverter().ExpandDatForm(exchangeList, rows);
}

}  // namespace tarvola::store
