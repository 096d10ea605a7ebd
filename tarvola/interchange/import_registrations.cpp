#include "tarvola/interchange/import_registrations.h"

#include <string>

#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/statement.h"

namespace tarvola::interchange {

namespace {

using store::number;
using store::Statement;
using store::text;

/// All rows of a recordset, whatever filter stood on it. Nothing for one without rows.
template <class Visit>
void forEachRow(const RecordsetPtr& rows, Visit visit) {
  if (store::isEmptyResult(rows)) return;
  rows->put_Filter("");
  for (; !rows->get_EOF(); rows->MoveNext()) visit();
}

std::string trimmedField(const RecordsetPtr& rows, std::string_view name) {
  return std::string(Trim(store::fieldText(rows, name)));
}

std::string trimmedElement(const Variant& values, std::size_t element) {
  const Variant::Array& array = values.array();
  if (element >= array.size()) fail(ErrorNumber::SubscriptOutOfRange);
  return std::string(Trim(CStr(array[element])));
}

void registerExchange(const store::StoreObject& store, const std::string& exchange) {
  if (!store::isEmptyResult(store.execute(Statement("SELECT * FROM BURSA WHERE BURSA = ") << text(exchange)))) return;
  const RecordsetPtr highest = store.execute("SELECT MAX(ID) AS iMaxIDBursa FROM BURSA ");
  const double id = store::fieldNumberOr(highest, "iMaxIDBursa", 0) + 1;
  store.execute(Statement("INSERT INTO BURSA VALUES (") << text(exchange) << " , " << number(id) << ")");
}

/// The code behind the highest one. An empty table counts as if it held code 1, so that the first commodity gets "02".
std::string nextCommodityCode(const store::StoreObject& store) {
  const RecordsetPtr rows =
      store.execute("SELECT MAX(KODE_KOMODITI) AS iMaxKodeKomoditi FROM JENIS_KOMODITI WHERE PASAL = 22");
  const Variant highest = store::fieldValue(rows, "iMaxKodeKomoditi");
  const std::int32_t last = highest.isNull() ? 1 : CLng(highest);
  const std::string next = CStr(last + 1);
  const bool hasOneDigit = CStr(last).size() < 2;
  return hasOneDigit && last != 9 ? "0" + next : next;
}

void registerCommodity(const store::StoreObject& store, const std::string& code, const std::string& name) {
  const RecordsetPtr known = store.execute(Statement("SELECT * FROM JENIS_KOMODITI WHERE KODE_KOMODITI = ")
                                           << text(code) << " AND NAMA_KOMODITI = " << text(name) << " AND PASAL = 22");
  if (!store::isEmptyResult(known)) return;
  store.execute(Statement("INSERT INTO JENIS_KOMODITI VALUES ( ")
                << text(nextCommodityCode(store)) << " , " << text(name) << " , 22 , 0 )");
}

}  // namespace

void registerExchanges(const store::StoreObject& store, const RecordsetPtr& names) {
  forEachRow(names, [&] { registerExchange(store, trimmedField(names, "BURSA")); });
}

void registerCommodities(const store::StoreObject& store, const RecordsetPtr& commodities) {
  forEachRow(commodities, [&] {
    registerCommodity(store, trimmedField(commodities, "KODE_KOMODITI"), trimmedField(commodities, "NAMA_KOMODITI"));
  });
}

void registerPartner(const store::StoreObject& store, const Variant& partner) {
  const std::string npwp = trimmedElement(partner, 0);
  const std::string name = trimmedElement(partner, 1);
  const std::string address = trimmedElement(partner, 2);
  const RecordsetPtr known = store.execute(Statement("SELECT * FROM PARTNER_INFO WHERE NPWP_PARTNER = ")
                                           << text(npwp) << " AND NAMA_WP_PARTNER = " << text(name)
                                           << " AND ALAMAT_PARTNER = " << text(address));
  if (!store::isEmptyResult(known)) return;
  store.execute(Statement("INSERT INTO PARTNER_INFO (NPWP_PARTNER, NAMA_WP_PARTNER,  ALAMAT_PARTNER, KODE_POS_PARTNER, "
                          "TELEPON_PARTNER) VALUES(")
                << text(withoutLineBreaks(npwp)) << "," << text(withoutLineBreaks(name)) << ","
                << text(withoutLineBreaks(address)) << ",'','')");
}

}  // namespace tarvola::interchange
