#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

#include "tarvola/cli/input_values.h"

namespace tarvola::cli {

/// A person at the terminal who can be asked.
class Person {
 public:
  Person(std::istream& in, std::ostream& out) : in_(in), out_(out) {}

  /// Asks until `check` takes the answer; an empty answer is the proposal. The end of the input fails the command, and
  /// nothing is written.
  std::string ask(const std::string& question, const std::string& proposal,
                  const std::function<void(const std::string&)>& check);
  /// Asks for each field that the printed form has words for, and hands on each answer at once, so that what is
  /// proposed next can follow from it. Gives the values that differ from the proposed ones.
  InputValues askFields(const std::vector<InputField>& fields,
                        const std::function<Variant(const InputField&)>& proposalOf,
                        const std::function<void(const InputValue&)>& answered);
  /// Asks for yes or no; the end of the input is a no.
  bool confirm(const std::string& question);

 private:
  std::istream& in_;
  std::ostream& out_;
};

/// For what cannot be undone: goes on if --yes was given or if the person agrees, else fails the command with what was
/// not done ("Nothing was removed."). Where nobody can be asked, a command without --yes is a wrong one.
void requireConsent(Person* person, bool yes, const std::string& question, const std::string& notDone);

}  // namespace tarvola::cli
