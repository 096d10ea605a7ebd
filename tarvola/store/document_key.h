#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "tarvola/ado/recordset.h"
#include "tarvola/store/form_codes.h"
#include "tarvola/store/statement.h"

namespace tarvola::store {

/// Month, year and correction number (0 is the first filing) of a return.
struct Period {
  std::int16_t msPajak = 0;
  std::int16_t thPajak = 0;
  std::int16_t kdPembetulanKe = 0;

  friend bool operator==(const Period&, const Period&) = default;
};

/// Month and year as one text of six digits, as some statements compare the month of a payment: January 2009 is
/// "012009".
std::string monthText(std::int16_t month, std::int16_t year);

/// "MS_PAJAK = 1 AND TH_PAJAK = 2009 AND KD_PEMBETULAN_KE = 0", with no word in front.
Statement periodCondition(const Period& period);

/// What identifies one document of a return. Texts are views: the key lives no longer than they do.
struct DocumentKey {
  std::string_view npwp;
  std::string_view kdForm;
  std::string_view jenisDokumen;
  Period period;
  std::string_view noBukti = headerNumber;
  std::string_view kdJenisPajak = taxKind;
};

/// "KD_FORM = '..' AND JENIS_DOKUMEN = '..' AND <period> AND NOBUKTI = '..' AND KD_JENIS_PAJAK = '..'": the document of
/// that key of whatever filer, since a store holds one.
Statement documentCondition(const DocumentKey& key);
/// The same with "NPWP = '..' AND " in front.
Statement ownDocumentCondition(const DocumentKey& key);

/// "DS_FORM_INDUK" or "DAT_SSP_PPh22".
std::string_view tableName(FormTable table) noexcept;
/// "SELECT * FROM <table> WHERE " and either condition.
Statement selectDocument(FormTable table, const DocumentKey& key);
Statement selectOwnDocument(FormTable table, const DocumentKey& key);

/// The INSERT of a document: TGL_REKAM and TGL_UBAH both hold the date text, NIP is '', FlagNPWP 0 (table
/// DAT_SSP_PPh22 has no such column and is inserted by position).
Statement insertDocument(FormTable table, const DocumentKey& key, std::string_view datForm, std::string_view dateText);

/// Who files: what the head of every packed text says.
struct FilerHeader {
  std::string npwp;
  std::string name;
  std::string address;
};

/// Reads the first row of "SELECT * FROM PROFILE" by npwp, NAMA_WP_PROFILE and Alamat; "" for a Null and for no row.
FilerHeader filerOfProfile(const RecordsetPtr& profile);
/// The same by NPWP, NAMA_WP_PARTNER and ALAMAT_WP_PARTNER, the other pair of columns that the table has.
FilerHeader filerOfPartnerColumns(const RecordsetPtr& profile);
/// The number alone, of a profile that was asked for nothing else. Error 91 for one that could not be read at all: no
/// document is to be kept under a filer that nobody knows.
std::string npwpOfProfile(const RecordsetPtr& profile);

/// The six leading fields of every packed text, joined by ";" with none behind. A ";" in one of the texts is error 5:
/// it would shift every later field of the row.
std::string packedHead(const FilerHeader& filer, const Period& period);

}  // namespace tarvola::store
