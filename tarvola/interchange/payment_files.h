#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "tarvola/store/statement.h"
#include "tarvola/store/store_object.h"

/// What the two sides of the payment records exchange share. A payment (SSP, table DATSSP) belongs to one correction of
/// a return, a transfer of payments (PBK, table datPBKPPhMasa) to the month.
namespace tarvola::interchange {

/// The words before the article in the first column of a line: "SSP4", "PBK4".
inline constexpr std::string_view paymentWord = "SSP";
inline constexpr std::string_view transferWord = "PBK";

/// The NTPP of a payment without a payment number.
inline constexpr std::string_view noPaymentNumber = "0000000000000000";

/// The titles of the file of both kinds.
inline constexpr std::string_view headerOfBoth =
    "Kode Pasal Untuk SSP / Kode Pasal Untuk PBK ; Masa Pajak SSP / Masa(Bulan) Berlaku PBK ; Tahun Pajak SSP / Tahun "
    "Berlaku PBK ; Pembetulan (SSP) ; NTPP (Nomor Tanda Pembayaran Pajak) SSP / Nomor Bukti PBK ; Tanggal Setor SSP / "
    "Tanggal Berlaku PBK ; Jumlah SSP / Jumlah PBK ; Kode MAP SSP ; Kode Jenis Setoran (KJS) SSP";

/// "SELECT * FROM datPBKPPhMasa WHERE ...": the transfers in favour of a filer in a month.
store::Statement selectTransfers(std::string_view npwp, std::int16_t article, std::int16_t month, std::int16_t year);

/// Closes the object's connection, if it is open, and lets it go. Recordsets that came from it are closed with it.
void closeConnection(store::StoreObject& store) noexcept;

}  // namespace tarvola::interchange
