#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvola {

/// How a document of one return stands to the other return.
enum class DifferenceKind : std::uint8_t {
  Added,    ///< only the later return has it
  Removed,  ///< only the earlier one has it
  Changed,
};

/// A field that two returns hold differently.
struct FieldDifference {
  std::string field;
  /// Both values in their text form; "" for a Null.
  std::string before;
  std::string after;
  /// Whether the field holds a number: rupiah, a rate, a count, an option.
  bool isNumber = false;
};

/// A document, payee or payment record that two returns hold differently.
struct DocumentDifference {
  DifferenceKind kind = DifferenceKind::Changed;
  /// KD_FORM of a document, JENIS of a payee (DN, LN, SBI, GIRO), KdJnsStr of a payment record.
  std::string form;
  /// The number of the slip or of the payment.
  std::string number;
  /// The SEQ of a self-paid form, "" elsewhere.
  std::string seq;
  /// Of a changed document every field that differs; of another one its gross and its tax.
  std::vector<FieldDifference> fields;
};

/// The amounts of a line of the main form: gross and tax in rupiah, rate in percent.
struct LineAmounts {
  double gross = 0;
  double rate = 0;
  double tax = 0;

  friend bool operator==(const LineAmounts&, const LineAmounts&) = default;
};

struct LineDifference {
  /// As the printed form numbers it.
  std::string_view line;
  LineAmounts before;
  LineAmounts after;
};

/// What a return owes and what is recorded as paid for it, in rupiah.
struct ReturnBalance {
  double gross = 0;
  double tax = 0;
  /// Payment records under its correction number.
  double payments = 0;
  /// Transfers of payments, which belong to the month, whatever the correction.
  double transfers = 0;

  /// More than 0: to be paid; less: paid too much.
  [[nodiscard]] double unpaid() const noexcept { return tax - payments - transfers; }

  friend bool operator==(const ReturnBalance&, const ReturnBalance&) = default;
};

/// What sets two returns of one month apart.
struct ReturnDifference {
  ReturnBalance before;
  ReturnBalance after;
  std::vector<LineDifference> lines;
  /// Fields of the main form that are neither lines nor totals: filer, texts of lines, marks, counts, dates.
  std::vector<FieldDifference> returnFields;
  /// In the order of their numbers.
  std::vector<DocumentDifference> slips;
  std::vector<DocumentDifference> selfPaidForms;
  std::vector<DocumentDifference> interestPayees;
  std::vector<DocumentDifference> payments;

  /// What the later return makes to be paid beside the earlier one; less than 0: what was paid too much.
  [[nodiscard]] double taxOfCorrection() const noexcept { return after.tax - before.tax; }
  /// Whether the two say the same.
  [[nodiscard]] bool isEmpty() const noexcept {
    return before == after && lines.empty() && returnFields.empty() && slips.empty() && selfPaidForms.empty() &&
           interestPayees.empty() && payments.empty();
  }
};

/// Compares two returns of a month, usually a return and its correction. The cost grows with the number of documents.
///
/// A slip is known by form and number, a self-paid form by form, number and SEQ, a payee by slip and kind, a payment
/// record by number, account and kind of payment. Where several share that, equal ones are taken together first, then
/// the others in their order. A number that was changed is a document removed and one added.
///
/// What must differ is not told: correction numbers, and the filer's own number inside the documents where it follows
/// the one of the main form. Neither are an empty amount against 0, numbers written otherwise (01 and 1), when a
/// document was recorded, and the keys and notes of payment records, which no copy carries. Lists follow from their
/// documents and are not compared.
///
/// The thread's connection settings must have been given to pSetCon. A return that is not there compares as an empty
/// one. Fails with a RunTimeError if the store cannot be read.
ReturnDifference compareReturns(std::int16_t month, std::int16_t year, std::int16_t before, std::int16_t after);

}  // namespace tarvola
