#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tarvola/ado/recordset.h"
#include "tarvola/runtime/variant.h"

namespace tarvola::mainreturn {

/// The fields of the main return as properties: "a" and the field's name, read and written by overload.
///
/// Each one reads or writes one field of the current record of rs4_2Form and does nothing else: nothing is computed,
/// and the store is written by pUpdate. Before a form is loaded a property shows the failure message; a getter then
/// gives 0, "" or Empty. Field names know no case, so that aB1A14 and the field B1a14 belong together.
///
/// Every line of the form has three fields: gross income in rupiah (it ends in 3), rate in percent (4), tax in rupiah
/// (5). Not every field has a getter; what has none is read through rs4_2Form.
class ReturnProperties {
 public:
  ReturnProperties(const ReturnProperties&) = delete;
  ReturnProperties& operator=(const ReturnProperties&) = delete;

  // --- 1a1: interest on deposits and savings placed at home; 1a2: abroad ------------------------------
  void aB1a13(double value) { put("B1a13", value); }
  void aB1A14(double value) { put("B1a14", value); }
  void aB1A15(double value) { put("B1a15", value); }
  double aB1A15() const { return numberOf("B1a15"); }
  void aB1a23(double value) { put("B1a23", value); }
  void aB1a24(double value) { put("B1a24", value); }
  void aB1A25(double value) { put("B1a25", value); }
  double aB1A25() const { return numberOf("B1a25"); }

  // --- 1b: discount of central bank certificates (SBI); 1c: giro, whose tax has no getter -------------
  void aB1B3(double value) { put("B1B3", value); }
  void aB1B4(double value) { put("B1B4", value); }
  void aB1B5(double value) { put("B1B5", value); }
  double aB1B5() const { return numberOf("B1B5"); }
  void aB1C3(double value) { put("B1C3", value); }
  void aB1C4(double value) { put("B1C4", value); }
  void aB1C5(double value) { put("B1C5", value); }

  // --- 2a: founder shares; 2b: other shares -----------------------------------------------------------
  void aB2a3(double value) { put("B2a3", value); }
  void aB2a4(double value) { put("B2a4", value); }
  void aB2A5(double value) { put("B2a5", value); }
  double aB2A5() const { return numberOf("B2a5"); }
  void aB2b3(double value) { put("B2b3", value); }
  void aB2b4(double value) { put("B2b4", value); }
  void aB2B5(double value) { put("B2b5", value); }
  double aB2B5() const { return numberOf("B2b5"); }

  // --- 3: bonds, the only line whose gross has a getter; 4: lottery prizes ----------------------------
  void aB33(double value) { put("B33", value); }
  double aB33() const { return numberOf("B33"); }
  void aB34(double value) { put("B34", value); }
  void aB35(double value) { put("B35", value); }
  double aB35() const { return numberOf("B35"); }
  void aB43(double value) { put("B43", value); }
  void aB44(double value) { put("B44", value); }
  void aB45(double value) { put("B45", value); }
  double aB45() const { return numberOf("B45"); }

  // --- 5a: rent of land and buildings, withheld by the tenant; 5b: self-paid --------------------------
  void aB5a3(double value) { put("B5a3", value); }
  void aB5a4(double value) { put("B5a4", value); }
  void aB5a5(double value) { put("B5a5", value); }
  double aB5a5() const { return numberOf("B5a5"); }
  void aB5b3(double value) { put("B5b3", value); }
  void aB5b4(double value) { put("B5b4", value); }
  void aB5b5(double value) { put("B5b5", value); }
  double aB5b5() const { return numberOf("B5b5"); }

  // --- 6a: planners of construction, withheld (6a1) and self-paid (6a2); 6b: builders; 6c: supervisors -
  void aB6a13(double value) { put("B6a13", value); }
  void aB6a14(double value) { put("B6a14", value); }
  void aB6a15(double value) { put("B6a15", value); }
  double aB6a15() const { return numberOf("B6a15"); }
  void aB6a23(double value) { put("B6a23", value); }
  void aB6a24(double value) { put("B6a24", value); }
  void aB6a25(double value) { put("B6a25", value); }
  double aB6a25() const { return numberOf("B6a25"); }
  void aB6b13(double value) { put("B6b13", value); }
  void aB6b14(double value) { put("B6b14", value); }
  void aB6b15(double value) { put("B6b15", value); }
  double aB6b15() const { return numberOf("B6b15"); }
  void aB6b23(double value) { put("B6b23", value); }
  void aB6b24(double value) { put("B6b24", value); }
  void aB6b25(double value) { put("B6b25", value); }
  double aB6b25() const { return numberOf("B6b25"); }
  void aB6c13(double value) { put("B6c13", value); }
  void aB6c14(double value) { put("B6c14", value); }
  void aB6c15(double value) { put("B6c15", value); }
  double aB6c15() const { return numberOf("B6c15"); }
  void aB6c23(double value) { put("B6c23", value); }
  void aB6c24(double value) { put("B6c24", value); }
  void aB6c25(double value) { put("B6c25", value); }
  double aB6c25() const { return numberOf("B6c25"); }

  // --- 7: transfer of land and buildings ---------------------------------------------------------------
  void aB73(double value) { put("B73", value); }
  void aB74(double value) { put("B74", value); }
  void aB75(double value) { put("B75", value); }
  double aB75() const { return numberOf("B75"); }

  // --- 8: cooperative savings; 9: futures contracts; 10: dividends of individuals ----------------------
  void aB83(double value) { put("B83", value); }
  void aB84(double value) { put("B84", value); }
  void aB85(double value) { put("B85", value); }
  double aB85() const { return numberOf("B85"); }
  void aB93(double value) { put("B93", value); }
  void aB94(double value) { put("B94", value); }
  void aB95(double value) { put("B95", value); }
  double aB95() const { return numberOf("B95"); }
  void aB103(double value) { put("B103", value); }
  void aB104(double value) { put("B104", value); }
  void aB105(double value) { put("B105", value); }
  double aB105() const { return numberOf("B105"); }

  // --- 11a to 11c: other income, each line with a text of its own ---------------------------------------
  void aB11a(const Variant& value) { put("B11a", value); }
  void aB11a3(double value) { put("B11a3", value); }
  void aB11a4(double value) { put("B11a4", value); }
  void aB11a5(double value) { put("B11a5", value); }
  double aB11a5() const { return numberOf("B11a5"); }
  void aB11b(const Variant& value) { put("B11b", value); }
  void aB11b3(double value) { put("B11b3", value); }
  void aB11b4(double value) { put("B11b4", value); }
  void aB11b5(double value) { put("B11b5", value); }
  double aB11b5() const { return numberOf("B11b5"); }
  void aB11c(const Variant& value) { put("B11c", value); }
  void aB11c3(double value) { put("B11c3", value); }
  void aB11c4(double value) { put("B11c4", value); }
  void aB11c5(double value) { put("B11c5", value); }
  double aB11c5() const { return numberOf("B11c5"); }

  // --- Total tax of the return, as pHitPjk3204 formed it -------------------------------------------------
  Variant aJmlB5() const { return valueOf("JmlB5"); }

  // --- Part C: marks, and the quantities behind them -----------------------------------------------------
  // A mark is 0 or 1. Reading a mark that is Null sets it to 0 on the record, which the next pUpdate then writes.
  void aCHKC1(std::int16_t value) { put("CHKC1", value); }
  std::int16_t aCHKC1() { return markOf("CHKC1"); }
  void aCHKC2(std::int16_t value) { put("CHKC2", value); }
  std::int16_t aCHKC2() { return markOf("CHKC2"); }
  void aCHKC3(std::int16_t value) { put("CHKC3", value); }
  std::int16_t aCHKC3() { return markOf("CHKC3"); }
  void aCHKC4(std::int16_t value) { put("CHKC4", value); }
  std::int16_t aCHKC4() { return markOf("CHKC4"); }
  void aCHKC5(std::int16_t value) { put("CHKC5", value); }
  std::int16_t aCHKC5() { return markOf("CHKC5"); }
  void aCHKC6(std::int16_t value) { put("CHKC6", value); }
  std::int16_t aCHKC6() { return markOf("CHKC6"); }
  /// Payment records of the return. A Null reads 0.
  void aC1(double value) { put("c1", value); }
  double aC1() const { return numberOrZero("c1"); }
  /// Slips of the return. A Null fails.
  void aC3(double value) { put("C3", value); }
  double aC3() const { return numberOf("C3"); }

  // --- Filer and dates -----------------------------------------------------------------------------------
  std::string aNPWP() const { return textOf("npwp"); }
  /// Date of payment.
  void aTGL_SETOR(const Variant& value) { put("TGL_SETOR", value); }
  Variant aTGL_SETOR() const { return valueOf("TGL_SETOR"); }
  /// Date of the return, field TGL_TRV.
  void aTGL_LAPOR(const Variant& value) { put("TGL_TRV", value); }
  Variant aTGL_LAPOR() const { return valueOf("TGL_TRV"); }

  // --- Fields of the later form. They take no part in the totals, and nothing in the library reads them. --
  void aB1a31_2(double value) { put("B1a31_2", value); }
  void aB1a41_2(double value) { put("B1A41_2", value); }
  void aB1A51_2(double value) { put("B1A51_2", value); }
  void aB1a32_2(double value) { put("B1a32_2", value); }
  void aB1A42_2(double value) { put("B1A42_2", value); }
  void aB1A52_2(double value) { put("B1A52_2", value); }
  void aB1b3_2(double value) { put("B1b3_2", value); }
  void aB1b4_2(double value) { put("B1B4_2", value); }
  void aB1B5_2(double value) { put("B1B5_2", value); }
  void aB1C3_2(double value) { put("B1C3_2", value); }
  void aB1C4_2(double value) { put("B1C4_2", value); }
  void aB1C5_2(double value) { put("B1C5_2", value); }
  void aB7A5(double value) { put("B7A5", value); }
  void aB7B5(double value) { put("B7B5", value); }
  void aB7C5(double value) { put("B7C5", value); }
  void aB8A31(double value) { put("B8A31", value); }
  void aB8A32(double value) { put("B8A32", value); }
  void aB8A41(double value) { put("B8A41", value); }
  void aB8A42(double value) { put("B8A42", value); }
  void aB8A51(double value) { put("B8A51", value); }
  void aB8A52(double value) { put("B8A52", value); }
  void aB8B31(double value) { put("B8B31", value); }
  void aB8B32(double value) { put("B8B32", value); }
  void aB8B41(double value) { put("B8B41", value); }
  void aB8B42(double value) { put("B8B42", value); }
  void aB8B51(double value) { put("B8B51", value); }
  void aB8B52(double value) { put("B8B52", value); }
  void aB8C31(double value) { put("B8C31", value); }
  void aB8C32(double value) { put("B8C32", value); }
  void aB8C41(double value) { put("B8C41", value); }
  void aB8C42(double value) { put("B8C42", value); }
  void aB8C51(double value) { put("B8C51", value); }
  void aB8C52(double value) { put("B8C52", value); }
  void aB9A2(std::string_view value) { put("B9A2", value); }
  void aB9A3(double value) { put("B9A3", value); }
  void aB9A4(double value) { put("B9A4", value); }
  void aB9A5(double value) { put("B9A5", value); }
  void aB9B2(std::string_view value) { put("B9B2", value); }
  void aB9B3(double value) { put("B9B3", value); }
  void aB9B4(double value) { put("B9B4", value); }
  void aB9B5(double value) { put("B9B5", value); }
  void aB9C2(std::string_view value) { put("B9C2", value); }
  void aB9C3(double value) { put("B9C3", value); }
  void aB9C4(double value) { put("B9C4", value); }
  void aB9C5(double value) { put("B9C5", value); }
  /// Fields of their own names; the tax of line 8 is aB85, that of line 5a aB5a5.
  void aB8B5(double value) { put("B8B5", value); }
  void aB55(double value) { put("B55", value); }

 protected:
  ReturnProperties() = default;
  ~ReturnProperties() = default;

  /// The return as named fields; nullptr before a load.
  RecordsetPtr form_;

 private:
  void put(std::string_view field, const Variant& value) noexcept;
  [[nodiscard]] Variant valueOf(std::string_view field) const noexcept;
  [[nodiscard]] double numberOf(std::string_view field) const noexcept;
  [[nodiscard]] double numberOrZero(std::string_view field) const noexcept;
  [[nodiscard]] std::string textOf(std::string_view field) const noexcept;
  std::int16_t markOf(std::string_view field) noexcept;
};

}  // namespace tarvola::mainreturn
