#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace tarvola {

/// A code of a payment and what it says.
struct PaymentCode {
  std::string_view code;
  std::string_view name;
};

/// The accounts (KdMAP) of payments of this return, old ones first. What an old code is today says REF_SSP_NEW.
inline constexpr std::array paymentAccounts = {
    PaymentCode{.code = "0118", .name = "PPh Final"}, PaymentCode{.code = "0171", .name = "Bea Meterai"},
    PaymentCode{.code = "0172", .name = "Pajak Tidak Langsung Lainnya"},
    PaymentCode{.code = "0173", .name = "Bunga Penagihan PPh"}, PaymentCode{.code = "411128", .name = "PPh Final"}};

/// The kinds of payment (KdJnsStr) of this return. Payments of other codes are stored, but no export takes them.
inline constexpr std::array paymentKinds = {
    PaymentCode{.code = "100", .name = ""},
    PaymentCode{.code = "199", .name = "Sebelum Ketetapan"},
    PaymentCode{.code = "300", .name = "STP"},
    PaymentCode{.code = "310", .name = "SKPKB Pasal 4 Ayat (2)"},
    PaymentCode{.code = "312", .name = "SKPKB Pasal 19"},
    PaymentCode{.code = "320", .name = "SKPKBT Pasal 4 Ayat (2)"},
    PaymentCode{.code = "322", .name = "SKPKBT Pasal 19"},
    PaymentCode{.code = "390", .name = "Pembetulan, Keberatan, Putusan"},
    PaymentCode{.code = "401", .name = "Bunga/Diskonto Obligasi"},
    PaymentCode{.code = "402", .name = "Pengalihan Hak atas Tanah/Bangunan"},
    PaymentCode{.code = "403", .name = "Persewaan Tanah dan/atau Bangunan"},
    PaymentCode{.code = "404", .name = "Bunga Deposito, Jasa Giro, Diskonto SBI"},
    PaymentCode{.code = "405", .name = "Hadiah Undian"},
    PaymentCode{.code = "406", .name = "Penjualan Saham"},
    PaymentCode{.code = "407", .name = "Saham Pendiri"},
    PaymentCode{.code = "408", .name = "Modal Ventura"},
    PaymentCode{.code = "409", .name = "Jasa Konstruksi"},
    PaymentCode{.code = "416", .name = "Revaluasi"},
    PaymentCode{.code = "417", .name = "Bunga Simpanan Koperasi"},
    PaymentCode{.code = "418", .name = "Kontrak Berjangka"},
    PaymentCode{.code = "419", .name = "Dividen"},
    PaymentCode{.code = "499", .name = "Lainnya"},
    PaymentCode{.code = "500", .name = "Pengungkapan"},
    PaymentCode{.code = "501", .name = "Pengungkapan"},
    PaymentCode{.code = "510", .name = "Denda Pengungkapan"},
    PaymentCode{.code = "511", .name = "Denda Pengungkapan"}};

/// The entry of an exactly written code, nullptr for another.
template <std::size_t Count>
constexpr const PaymentCode* findPaymentCode(const std::array<PaymentCode, Count>& codes, std::string_view code) {
  const auto found =
      std::find_if(codes.begin(), codes.end(), [&](const PaymentCode& each) { return each.code == code; });
  return found == codes.end() ? nullptr : &*found;
}

template <std::size_t Count>
constexpr bool areInOrder(const std::array<PaymentCode, Count>& codes) {
  return std::is_sorted(codes.begin(), codes.end(), [](const PaymentCode& left, const PaymentCode& right) {
    return left.code.size() != right.code.size() ? left.code.size() < right.code.size() : left.code <= right.code;
  });
}
static_assert(areInOrder(paymentAccounts) && areInOrder(paymentKinds), "a code is missing its place, or stands twice");

}  // namespace tarvola
