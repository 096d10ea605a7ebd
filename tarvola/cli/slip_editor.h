#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/cli/commands.h"
#include "tarvola/cli/filer.h"
#include "tarvola/cli/input_values.h"
#include "tarvola/cli/slip_forms.h"
#include "tarvola/slips/slip_frame.h"

namespace tarvola::cli {

/// The fields of a slip that a person fills in, in the order of the printed form. Number and date are not among them.
std::vector<InputField> slipFields(const SlipForm& form);

/// One slip on its way into the store, in the order of steps that leaves nothing half done: whatever can be wrong is
/// found before the first row is written, and a save that fails all the same is taken back.
///
/// Every member fails with a CommandFailure that says what is wrong and how to mend it.
class SlipEditor {
 public:
  SlipEditor(const SlipForm& form, const Period& period);
  ~SlipEditor();

  [[nodiscard]] const std::vector<InputField>& fields() const noexcept { return fields_; }

  /// A number that no slip of the year and correction holds: what the form proposes, or, where that is taken, lacks its
  /// suffix or has run out, the one behind the greatest of all nine forms.
  std::string nextNumber();
  /// Fails if a slip holds the number already.
  void requireFree(std::string_view number);

  /// Starts a new slip in memory: default tariffs, the rest 0 or empty.
  void start();
  /// A field of the slip in memory, and a write to it, behind which the tax of its row follows.
  [[nodiscard]] Variant current(const InputField& field) const;
  void put(const InputValue& value);

  /// Adds a slip. Nothing is left behind if it fails.
  void add(const std::string& number, const std::string& date, const InputValues& values);
  /// Changes a slip; an empty new number or date keeps what it has.
  void change(const std::string& number, const std::string& newNumber, const std::string& newDate,
              const InputValues& values);
  /// Removes a slip, its rows in the lists, and its share in list and return.
  void remove(const std::string& number);

  /// What the form made of the values, where that is not what was given: one sentence each.
  [[nodiscard]] const std::vector<std::string>& notes() const noexcept { return notes_; }

 private:
  void load(const std::string& number);
  void apply(const InputValues& values);
  void compute(const InputValues& values);
  void requireSaneAmounts() const;
  void noteDifferences(const InputValues& values);
  void save(const std::string& oldNumber, const std::string& newNumber);
  void takeBack(const std::string& number, const std::string& reason);
  void removeDamaged(const std::string& number);
  void deleteRow(const std::string& number);
  void removeListRow(const std::string& number) const;
  void addInterestLines();
  void removeInterestLines();

  const SlipForm& form_;
  Period period_;
  Filer filer_;
  std::unique_ptr<slips::SlipFrame> slip_;
  std::vector<InputField> fields_;
  std::vector<std::string> notes_;
  /// The interest of a bond before it is changed: what a change of its amounts does not move any more.
  double interestBefore_ = 0;
};

}  // namespace tarvola::cli
