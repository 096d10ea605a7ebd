#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/cli/commands.h"
#include "tarvola/cli/input_values.h"
#include "tarvola/store/form_codes.h"

namespace tarvola::cli {

/// A self-paid form as people name it.
struct SelfPaidForm {
  store::FormCodes codes;
  store::FormCodes list;
  /// The short word for the command line.
  std::string_view word;
  std::string_view printedName;
  /// The fields that hold gross and tax, pair by pair.
  std::vector<std::string_view> gross;
  std::vector<std::string_view> tax;
  /// The fields that a person fills in.
  std::vector<InputField> fields;
};

const std::vector<SelfPaidForm>& selfPaidForms();
/// The form of a code or of its short word, without regard to case. Fails with the forms that there are.
const SelfPaidForm& requireSelfPaidForm(std::string_view codeOrWord);

/// One self-paid form on its way into the store; as SlipEditor. A form is known by its payment number (NTPN) and its
/// SEQ, since one payment may stand on several forms.
class SelfPaidEditor {
 public:
  class Handle;

  SelfPaidEditor(const SelfPaidForm& form, const Period& period);
  ~SelfPaidEditor();

  [[nodiscard]] double nextSeq();
  /// The SEQs of the forms that carry a payment number.
  [[nodiscard]] std::vector<double> seqsOf(const std::string& ntpn) const;
  /// The SEQ that is meant: the given one, or the only one. Fails if there is no such form or if it is not clear which.
  [[nodiscard]] double requireSeq(const std::string& ntpn, const std::optional<double>& given) const;

  void add(const std::string& ntpn, double seq, const std::string& date, const InputValues& values);
  void change(const std::string& ntpn, double seq, const std::string& newNtpn, const std::string& newDate,
              const InputValues& values);
  void remove(const std::string& ntpn, double seq);

 private:
  void requireDistinct(const std::string& ntpn, double seq) const;
  /// Fails if a tax would be more than its gross, given or stored.
  void requirePlausible(const std::string& ntpn, double seq, const InputValues& values) const;
  void begin(const std::string& ntpn, const std::string& date);
  void apply(const InputValues& values);
  void takeBack(const std::string& ntpn, double seq, bool isFirst, const std::string& reason);
  [[nodiscard]] bool hasAmounts(const std::string& ntpn, double seq) const;
  void removeDamaged(const std::string& ntpn);

  const SelfPaidForm& form_;
  Period period_;
  std::unique_ptr<Handle> handle_;
};

/// Fails unless a text can be a payment number: letters and digits.
void requirePaymentNumber(std::string_view ntpn);

}  // namespace tarvola::cli
