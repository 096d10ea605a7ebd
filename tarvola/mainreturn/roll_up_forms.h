#pragma once

#include <array>
#include <span>
#include <string_view>

#include "tarvola/mainreturn/return_lines.h"
#include "tarvola/store/form_codes.h"

namespace tarvola::mainreturn {

/// A line of the return and the fields of a document that are summed into it, where the form is one that a table can
/// describe whole.
struct FedLine {
  ReturnLine line;
  std::array<std::string_view, 6> gross = {};
  std::string_view tax = {};
  /// Which total columns give the average rate; not read where the rate is the quotient of the line.
  std::string_view averageChoice = {};
};

/// How the rows of a form reach its lines.
enum class RowRule {
  SummedFields,  ///< as the table says
  Interest,      ///< each item by its options DN and LN, the rest by kind; then line 11a
  Construction,  ///< two of the five rows by their options
};

/// Where the rate of a line comes from. It is left alone while the line's gross is 0.
enum class RateRule {
  Average,   ///< the average over the documents, cut to two decimals
  Quotient,  ///< tax * 100 / gross of the line, with all its decimals
};

/// One form of the recount.
struct RolledUpForm {
  store::FormCodes form;
  std::span<const FedLine> lines;
  RowRule rowRule = RowRule::SummedFields;
  RateRule rateRule = RateRule::Average;
  /// Whether C3 is set to the documents read so far once the form's lines stand.
  bool setsSlipCount = false;
};

namespace fed {

inline constexpr std::array prizes = {
    FedLine{.line = returnLine("4"), .gross = {"B13", "B23", "B33", "B43", "B53", "B63"}, .tax = "JmlB5"}};
inline constexpr std::array interest = {FedLine{.line = returnLine("1a1"), .averageChoice = "DN"},
                                        FedLine{.line = returnLine("1a2"), .averageChoice = "LN"},
                                        FedLine{.line = returnLine("1b"), .averageChoice = "SBI"},
                                        FedLine{.line = returnLine("1c"), .averageChoice = "GIRO"}};
inline constexpr std::array shares = {
    FedLine{.line = returnLine("2a"), .gross = {"B13"}, .tax = "B15", .averageChoice = "1"},
    FedLine{.line = returnLine("2b"), .gross = {"B23"}, .tax = "B25", .averageChoice = "2"}};
inline constexpr std::array rent = {FedLine{.line = returnLine("5a"), .gross = {"JMLBRUTO"}, .tax = "PPHDIPTG"}};
// The lines stand crosswise to the slip: its rows with an option lead to 6a and 6c, the three plain ones to 6b.
inline constexpr std::array construction = {FedLine{.line = returnLine("6a1"), .averageChoice = "1"},
                                            FedLine{.line = returnLine("6b1"), .averageChoice = "2"},
                                            FedLine{.line = returnLine("6c1"), .averageChoice = "3"}};
inline constexpr std::array bonds = {FedLine{.line = returnLine("3"), .gross = {"JML"}, .tax = "PPhFinal"}};
inline constexpr std::array selfPaidRent = {FedLine{.line = returnLine("5b"), .gross = {"JMLBRUTO"}, .tax = "PPH"}};
inline constexpr std::array selfPaidConstruction = {
    FedLine{.line = returnLine("6a2"), .gross = {"JmlBruto1"}, .tax = "PPH1"},
    FedLine{.line = returnLine("6b2"), .gross = {"JmlBruto2"}, .tax = "PPH2"},
    FedLine{.line = returnLine("6c2"), .gross = {"JmlBruto3"}, .tax = "PPH3"}};
inline constexpr std::array savings = {FedLine{.line = returnLine("8"), .gross = {"JMLBRUTO"}, .tax = "PPHDIPTG"}};
inline constexpr std::array futures = {FedLine{.line = returnLine("9"), .gross = {"JMLBRUTO"}, .tax = "PPHDIPTG"}};
inline constexpr std::array dividends = {FedLine{.line = returnLine("10"), .gross = {"JMLBRUTO"}, .tax = "PPHDIPTG"}};
inline constexpr std::array transfers = {FedLine{.line = returnLine("7"), .gross = {"JMLBRUTO"}, .tax = "PPH"}};

}  // namespace fed

/// The forms in the order of the recount. The order shows when a document fails it: the lines of the forms before it
/// stand.
inline constexpr std::array rolledUpForms = {
    RolledUpForm{.form = store::F113309, .lines = fed::prizes},
    RolledUpForm{.form = store::F113310, .lines = fed::interest, .rowRule = RowRule::Interest},
    RolledUpForm{.form = store::F113311, .lines = fed::shares},
    RolledUpForm{.form = store::F113312, .lines = fed::rent},
    RolledUpForm{.form = store::F113316, .lines = fed::construction, .rowRule = RowRule::Construction},
    RolledUpForm{.form = store::F113317, .lines = fed::bonds, .setsSlipCount = true},
    RolledUpForm{.form = store::FSewaTnhBgn, .lines = fed::selfPaidRent, .rateRule = RateRule::Quotient},
    RolledUpForm{.form = store::FJasaKonstruksi, .lines = fed::selfPaidConstruction, .rateRule = RateRule::Quotient},
    RolledUpForm{.form = store::F113319, .lines = fed::savings},
    RolledUpForm{.form = store::F113320, .lines = fed::futures},
    RolledUpForm{.form = store::F113321, .lines = fed::dividends},
    RolledUpForm{.form = store::FAlihTnhBgn, .lines = fed::transfers, .rateRule = RateRule::Quotient},
};
static_assert(rolledUpForms.size() == 12);

}  // namespace tarvola::mainreturn
