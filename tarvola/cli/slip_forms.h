#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/cli/commands.h"
#include "tarvola/store/form_codes.h"

namespace tarvola::cli {

/// A slip form as people name it, and which of its fields hold its gross and its tax as a whole.
struct SlipForm {
  store::FormCodes codes;
  /// The short word for the command line.
  std::string_view word;
  std::string_view printedName;
  std::string_view gross = "JMLPHSL";
  std::string_view tax = "JmlB5";
};

inline constexpr std::array slipForms = {
    SlipForm{.codes = store::F113309, .word = "lottery", .printedName = "Hadiah Undian"},
    SlipForm{
        .codes = store::F113310, .word = "interest", .printedName = "Bunga Deposito/Tabungan, Diskonto SBI, Jasa Giro"},
    SlipForm{
        .codes = store::F113311, .word = "shares", .printedName = "Penjualan Saham yang Diperdagangkan di Bursa Efek"},
    SlipForm{.codes = store::F113312,
             .word = "rent",
             .printedName = "Persewaan Tanah dan/atau Bangunan",
             .gross = "JMLBRUTO",
             .tax = "PPHDIPTG"},
    SlipForm{.codes = store::F113316, .word = "construction", .printedName = "Usaha Jasa Konstruksi"},
    SlipForm{.codes = store::F113317,
             .word = "bonds",
             .printedName = "Bunga dan/atau Diskonto Obligasi dan Surat Berharga Negara",
             .gross = "JML",
             .tax = "PPhFinal"},
    SlipForm{.codes = store::F113319,
             .word = "cooperative",
             .printedName = "Bunga Simpanan Koperasi",
             .gross = "JMLBRUTO",
             .tax = "PPHDIPTG"},
    SlipForm{.codes = store::F113320,
             .word = "futures",
             .printedName = "Kontrak Berjangka",
             .gross = "JMLBRUTO",
             .tax = "PPHDIPTG"},
    SlipForm{.codes = store::F113321,
             .word = "dividends",
             .printedName = "Dividen Orang Pribadi Dalam Negeri",
             .gross = "JMLBRUTO",
             .tax = "PPHDIPTG"}};

/// The form of a code or of its short word, without regard to case. Fails with the forms that there are.
const SlipForm& requireSlipForm(std::string_view codeOrWord);

/// The form of the slip that has a number in a return. Fails if there is none, or if several forms hold the number.
const SlipForm& formOfSlip(std::string_view number, const Period& period);

/// Fails unless a number is six digits, and behind them a suffix with its "/" or nothing.
void requireSlipNumber(std::string_view number);

}  // namespace tarvola::cli
