#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "tarvola/ado/recordset.h"
#include "tarvola/store/document_key.h"
#include "tarvola/store/statement.h"
#include "tarvola/store/store_object.h"

namespace tarvola::store {

// What a store holds: its returns and their documents, of all kinds and of whatever filer.

/// "(<column> = '111' OR <column> = '117')": the documents of a tax kind, with those that it shares.
Statement kindCondition(FixedText column, std::string_view kdJenisPajak);
/// "(KD_FORM = 'D113206' OR KD_FORM = 'D113207')"; empty codes are passed over.
Statement anyFormCondition(std::span<const std::string_view> forms);

/// The documents of a return with their names, in the order of form, document code and number. A document that the
/// table of names does not know is not among them.
RecordsetPtr listDocuments(const StoreObject& store, std::string_view kdJenisPajak, const Period& period);

/// The self-paid forms of a return and the headers of their lists, likewise. A payment that stands on several forms is
/// there for each of them.
RecordsetPtr listSelfPaidDocuments(const StoreObject& store, std::string_view kdJenisPajak, const Period& period);

/// The highest correction number of a form in a month, -1 without one. Documents of the shared kind do not count.
std::int16_t highestCorrection(const StoreObject& store, std::string_view kdJenisPajak, std::string_view kdForm,
                               std::int16_t month, std::int16_t year);

/// The form that a slip number of the period stands on, among the slip forms of an article, or among all forms for an
/// article that has none; "" for no row and for several.
std::string formOfNumber(const StoreObject& store, std::string_view noBukti, const Period& period,
                         std::int16_t article);

/// The partner with a tax number: NPWP_PARTNER, NAMA_WP_PARTNER, ALAMAT_PARTNER.
RecordsetPtr findPartner(const StoreObject& store, std::string_view npwp);

/// The list of exchanges (D113207) of a return as named fields.
RecordsetPtr listExchanges(const StoreObject& store, const Period& period);

}  // namespace tarvola::store
