#include "tarvola/cli/person.h"

#include <istream>
#include <ostream>

#include "tarvola/cli/failure.h"
#include "tarvola/tarvola.h"

namespace tarvola::cli {

std::string Person::ask(const std::string& question, const std::string& proposal,
                        const std::function<void(const std::string&)>& check) {
  while (true) {
    out_ << question << (proposal.empty() ? "" : " [" + proposal + "]") << ": " << std::flush;
    std::string typed;
    if (!std::getline(in_, typed))
      throw CommandFailure("The input ended before everything was answered; nothing was written.");
    if (!typed.empty() && typed.back() == '\r') typed.pop_back();
    if (Trim(typed).empty()) typed = proposal;
    try {
      check(typed);
      return typed;
    } catch (const CommandFailure& failure) {
      out_ << "  " << Replace(failure.what(), "\n", "\n  ") << '\n';
    }
  }
}

InputValues Person::askFields(const std::vector<InputField>& fields,
                              const std::function<Variant(const InputField&)>& proposalOf,
                              const std::function<void(const InputValue&)>& answered) {
  InputValues answers;
  for (const InputField& field : fields) {
    if (field.label.empty()) continue;
    const Variant proposal = proposalOf(field);
    const std::string proposed = proposal.isNull() ? "" : CStr(proposal);
    const std::string typed = ask(field.label + " (" + field.name + ")", proposed, [&](const std::string& answer) {
      if (answer != proposed) readInput(field, std::string_view(answer));
    });
    if (typed == proposed) continue;
    answers.push_back({field.name, field.kind, readInput(field, std::string_view(typed))});
    answered(answers.back());
  }
  return answers;
}

bool Person::confirm(const std::string& question) {
  out_ << question << " [y/N] " << std::flush;
  std::string typed;
  std::getline(in_, typed);
  return typed == "y" || typed == "Y" || equalsIgnoreCase(typed, "yes");
}

void requireConsent(Person* person, bool yes, const std::string& question, const std::string& notDone) {
  if (yes) return;
  if (person == nullptr)
    throw CommandFailure(notDone + " " + question + " Nobody is at the terminal to answer.\nGive --yes to agree.",
                         Usage);
  if (!person->confirm(question)) throw CommandFailure(notDone);
}

}  // namespace tarvola::cli
