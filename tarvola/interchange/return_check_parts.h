#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tarvola/interchange/return_check_report.h"
#include "tarvola/store/form_codes.h"

/// The parts of a check, in the order in which they run.
namespace tarvola::interchange {

/// The header documents: each is there once, with the fields of its form.
void checkHeaders(const CheckContext& context);
/// Every slip, its row in the list D113206, the sums of that list; and the interest lines with their sums.
void checkSlips(const CheckContext& context);
/// Every self-paid form, its row in its list, the sums of the three lists.
void checkSelfPaidForms(const CheckContext& context);
/// Numbers that are held twice in the year and correction, and those that the number memory has passed by.
void checkNumbers(const CheckContext& context);
/// The main form against a recount on the side.
void checkMainForm(const CheckContext& context);

/// The interest lines (table D113210) of the period: what the slips should have there is handed in as they are walked.
struct InterestDocument {
  std::string number;
  std::string payeeNpwp;
  std::string payeeName;
  /// Gross and tax of DN, LN, SBI and GIRO, in rupiah.
  std::array<std::pair<double, double>, 4> kinds;
};
void checkInterestLines(const CheckContext& context, const std::vector<InterestDocument>& slips);

/// A warning if an NPWP cannot be one. An empty one is none.
void checkNpwp(CheckReport& report, std::string_view document, std::string_view field, std::string_view npwp);

/// The one header row of a list, its packed text; nothing if there is not exactly one.
std::optional<std::string> headerText(const CheckContext& context, const store::FormCodes& form);

}  // namespace tarvola::interchange
