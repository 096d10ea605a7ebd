#include "tarvola/store/document_key.h"

#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/packed_row.h"
#include "tarvola/store/store_object.h"

namespace tarvola::store {
namespace {

FilerHeader filerFrom(const RecordsetPtr& profile, std::string_view name, std::string_view address) {
  if (isEmptyResult(profile)) return {};
  return {.npwp = fieldTextOr(profile, "NPWP", ""),
          .name = fieldTextOr(profile, name, ""),
          .address = fieldTextOr(profile, address, "")};
}

}  // namespace

std::string monthText(std::int16_t month, std::int16_t year) {
  std::string digits = CStr(std::int32_t{month});
  if (digits.size() < 2) digits.insert(0, "0");
  return digits += CStr(std::int32_t{year});
}

Statement periodCondition(const Period& period) {
  return Statement("MS_PAJAK = ") << std::int32_t{period.msPajak} << " AND TH_PAJAK = " << std::int32_t{period.thPajak}
                                  << " AND KD_PEMBETULAN_KE = " << std::int32_t{period.kdPembetulanKe};
}

Statement documentCondition(const DocumentKey& key) {
  return Statement("KD_FORM = ") << text(key.kdForm) << " AND JENIS_DOKUMEN = " << text(key.jenisDokumen) << " AND "
                                 << periodCondition(key.period) << " AND NOBUKTI = " << text(key.noBukti)
                                 << " AND KD_JENIS_PAJAK = " << text(key.kdJenisPajak);
}

Statement ownDocumentCondition(const DocumentKey& key) {
  return Statement("NPWP = ") << text(key.npwp) << " AND " << documentCondition(key);
}

std::string_view tableName(FormTable table) noexcept {
  return table == FormTable::Induk ? "DS_FORM_INDUK" : "DAT_SSP_PPh22";
}

Statement selectDocument(FormTable table, const DocumentKey& key) {
  return Statement("SELECT * FROM ") << name(tableName(table)) << " WHERE " << documentCondition(key);
}

Statement selectOwnDocument(FormTable table, const DocumentKey& key) {
  return Statement("SELECT * FROM ") << name(tableName(table)) << " WHERE " << ownDocumentCondition(key);
}

Statement insertDocument(FormTable table, const DocumentKey& key, std::string_view datForm, std::string_view dateText) {
  const bool hasFlag = table == FormTable::Induk;
  Statement insert("INSERT INTO ");
  insert << name(tableName(table));
  if (hasFlag) {
    insert << " (NPWP,KD_FORM,JENIS_DOKUMEN,MS_PAJAK,TH_PAJAK,KD_PEMBETULAN_KE,NOBUKTI,KD_JENIS_PAJAK,DAT_FORM,"
              "TGL_REKAM,TGL_UBAH,NIP,FlagNPWP)";
  }
  insert << " VALUES (" << text(key.npwp) << ", " << text(key.kdForm) << ", " << text(key.jenisDokumen) << ", "
         << std::int32_t{key.period.msPajak} << ", " << std::int32_t{key.period.thPajak} << ", "
         << std::int32_t{key.period.kdPembetulanKe} << ", " << text(key.noBukti) << ", " << text(key.kdJenisPajak)
         << ", " << text(datForm) << ", " << text(dateText) << ", " << text(dateText) << ", ''";
  if (hasFlag) insert << ", 0";
  return insert << ")";
}

FilerHeader filerOfProfile(const RecordsetPtr& profile) { return filerFrom(profile, "NAMA_WP_PROFILE", "Alamat"); }

FilerHeader filerOfPartnerColumns(const RecordsetPtr& profile) {
  return filerFrom(profile, "NAMA_WP_PARTNER", "ALAMAT_WP_PARTNER");
}

std::string npwpOfProfile(const RecordsetPtr& profile) {
  return isEmptyResult(profile) ? std::string() : fieldTextOr(profile, "NPWP", "");
}

std::string packedHead(const FilerHeader& filer, const Period& period) {
  PackedRow head;
  head.text("NPWP", filer.npwp).text("NmWP", filer.name).text("ALM", filer.address);
  head.whole(period.msPajak).whole(period.thPajak).whole(period.kdPembetulanKe);
  return head.str();
}

}  // namespace tarvola::store
