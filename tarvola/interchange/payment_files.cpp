#include "tarvola/interchange/payment_files.h"

#include "tarvola/store/failure_rule.h"

namespace tarvola::interchange {

store::Statement selectTransfers(std::string_view npwp, std::int16_t article, std::int16_t month, std::int16_t year) {
  return store::Statement("SELECT * FROM datPBKPPhMasa WHERE NPWPTertuju = ")
         << store::text(npwp) << " AND PASAL = " << std::int32_t{article} << " AND MsPjkPBK = " << std::int32_t{month}
         << " AND ThPjkPBK = " << std::int32_t{year} << " ";
}

void closeConnection(store::StoreObject& store) noexcept {
  // An object that could not open its connection has said so when it was made.
  guardedSilently([&store] { store.connection()->Close(); });
  store.release();
}

}  // namespace tarvola::interchange
