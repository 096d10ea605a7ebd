#pragma once

#include "tarvola/runtime/variant.h"
#include "tarvola/slips/slip_descriptions.h"
#include "tarvola/slips/slip_frame.h"
#include "tarvola/slips/slip_operations.h"

namespace tarvola {

/// The withholding slip for lottery prizes (F113309): six rows of kind of prize, gross, tariff and tax, which move line
/// 4 of the return (B43, B44, B45).
///
/// Its tax is gross * (tariff / 100), computed when either is written and cut down to whole rupiah by pHitPjk. A new
/// slip takes the tariff of the settings' item B14 in all six rows.
class CF113309 final : public slips::SlipFrame {
 public:
  CF113309() : SlipFrame(slips::lotteryPrizes) {}

  /// The stub holds its eight leading fields, its own number among them.
  slips::CreateOperation pCreateF113309Hdr{*this};
  slips::LoadOperation pGetF113309{*this};
  slips::DeleteOperation pDeleteF113309{*this};

  // Kinds of prize, rows 1 to 6.
  void aB12(const Variant& value) { put("B12", value); }
  void aB22(const Variant& value) { put("B22", value); }
  void aB32(const Variant& value) { put("B32", value); }
  void aB42(const Variant& value) { put("B42", value); }
  void aB52(const Variant& value) { put("B52", value); }
  void aB62(const Variant& value) { put("B62", value); }

  // Gross in rupiah; the row's tax follows.
  void aB13(double value) { put("B13", value); }
  void aB23(double value) { put("B23", value); }
  void aB33(double value) { put("B33", value); }
  void aB43(double value) { put("B43", value); }
  void aB53(double value) { put("B53", value); }
  void aB63(double value) { put("B63", value); }

  // Tariff in percent; the row's tax follows.
  void aB14(double value) { put("B14", value); }
  void aB24(double value) { put("B24", value); }
  void aB34(double value) { put("B34", value); }
  void aB44(double value) { put("B44", value); }
  void aB54(double value) { put("B54", value); }
  void aB64(double value) { put("B64", value); }

  // Tax in rupiah, as typed in.
  void aB15(double value) { put("B15", value); }
  void aB25(double value) { put("B25", value); }
  void aB35(double value) { put("B35", value); }
  void aB45(double value) { put("B45", value); }
  void aB55(double value) { put("B55", value); }
  void aB65(double value) { put("B65", value); }
};

}  // namespace tarvola
