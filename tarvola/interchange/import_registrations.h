#pragma once

#include "tarvola/ado/recordset.h"
#include "tarvola/runtime/variant.h"
#include "tarvola/store/store_object.h"

/// Registering what the lines of an import name.
namespace tarvola::interchange {

/// Each exchange of the column BURSA that the table BURSA does not have yet gets the next ID.
void registerExchanges(const store::StoreObject& store, const RecordsetPtr& names);
/// Each commodity of article 22 that JENIS_KOMODITI does not have yet gets the next code.
void registerCommodities(const store::StoreObject& store, const RecordsetPtr& commodities);
/// A partner (NPWP, name, address) that PARTNER_INFO does not have yet.
void registerPartner(const store::StoreObject& store, const Variant& partner);

}  // namespace tarvola::interchange
