// tarvola store create | info

#include <CLI/CLI.hpp>
#include <array>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>
#include <vector>

#include "tarvola/cli/commands.h"
#include "tarvola/cli/documents.h"
#include "tarvola/cli/failure.h"
#include "tarvola/cli/filer.h"
#include "tarvola/cli/table.h"
#include "tarvola/cli/terminal.h"
#include "tarvola/interchange/return_check.h"
#include "tarvola/tarvola.h"

namespace tarvola::cli {

namespace {

// --- create ----------------------------------------------------------------------------------------------

/// A piece of the filer's data: its name as an option and in a profile file, and where it goes.
struct ProfileField {
  const char* name;
  std::string FilerProfile::*member;
  const char* help;
};

constexpr std::array profileFields = {
    ProfileField{"npwp", &FilerProfile::npwp, "The filer's NPWP, 15 digits"},
    ProfileField{"name", &FilerProfile::name, "The filer's name"},
    ProfileField{"address", &FilerProfile::address, "The filer's address"},
    ProfileField{"city", &FilerProfile::city, "City"},
    ProfileField{"postcode", &FilerProfile::postcode, "Postal code"},
    ProfileField{"phone", &FilerProfile::phone, "Telephone"},
    ProfileField{"fax", &FilerProfile::fax, "Fax"},
    ProfileField{"mail", &FilerProfile::mail, "E-mail"},
    ProfileField{"signer-npwp", &FilerProfile::signerNpwp, "NPWP of who signs the return"},
    ProfileField{"signer-name", &FilerProfile::signerName, "Name of who signs the return"},
    ProfileField{"attorney-npwp", &FilerProfile::attorneyNpwp, "NPWP of who signs under a power of attorney"},
    ProfileField{"attorney-name", &FilerProfile::attorneyName, "Name of who signs under a power of attorney"},
    ProfileField{"slip-signer-office", &FilerProfile::slipSignerOffice, "Office of who signs the slips"},
    ProfileField{"slip-signer-name", &FilerProfile::slipSignerName, "Name of who signs the slips"},
    ProfileField{"tax-office", &FilerProfile::taxOffice, "The tax office (KPP)"}};

struct CreateOptions {
  std::string path;
  std::string profileFile;
  std::array<std::string, profileFields.size()> values;
};

std::size_t fieldOf(const std::string& name, const std::string& file) {
  for (std::size_t i = 0; i < profileFields.size(); ++i)
    if (name == profileFields[i].name) return i;
  std::string known;
  for (const ProfileField& field : profileFields) known += (known.empty() ? "" : ", ") + std::string(field.name);
  throw CommandFailure(file + " holds \"" + name + "\", which a profile does not have.\nA profile has: " + known + ".");
}

/// A JSON object of texts, one for each piece that is known.
void readProfileFile(const std::string& path, FilerProfile& profile) {
  nlohmann::json data;
  try {
    data = nlohmann::json::parse(readFile(path));
  } catch (const nlohmann::json::exception& failure) {
    throw CommandFailure(path + " is not JSON: " + failure.what());
  } catch (const RunTimeError& failure) {
    throw CommandFailure(path + ": " + failure.description());
  }
  if (!data.is_object()) throw CommandFailure(path + " must hold one JSON object with the filer's data.");
  for (const auto& [name, value] : data.items()) {
    const ProfileField& field = profileFields[fieldOf(name, path)];
    if (!value.is_string()) throw CommandFailure(path + ": \"" + name + "\" must be a text.");
    profile.*field.member = value.get<std::string>();
  }
}

/// What would break a row or a statement later is refused now, when it can be mended with ease.
void requireUsable(const FilerProfile& profile) {
  if (profile.npwp.empty() || profile.name.empty() || profile.address.empty())
    throw CommandFailure(
        "A store needs its filer's NPWP, name and address.\nGive --npwp, --name and --address, or a file "
        "with --profile.",
        Usage);
  for (const ProfileField& field : profileFields)
    if ((profile.*field.member).find_first_of(";'\r\n") != std::string::npos)
      throw CommandFailure(
          std::string("The ") + field.name +
              " holds a semicolon, an apostrophe or a line break, which no document can carry.\nWrite it "
              "without.",
          Usage);
  if (profile.npwp.size() != 15 || profile.npwp.find_first_not_of("0123456789") != std::string::npos)
    throw CommandFailure("The NPWP " + profile.npwp +
                             " does not have 15 digits.\nWrite it as 013121660091000 or as 01.312.166.0-091.000.",
                         Usage);
}

void createStoreFile(const CreateOptions& options, const Context& context) {
  if (std::filesystem::exists(options.path))
    throw CommandFailure(options.path + " exists already, and stays as it is.\nGive the new store another name.");
  FilerProfile profile;
  if (!options.profileFile.empty()) readProfileFile(options.profileFile, profile);
  for (std::size_t i = 0; i < profileFields.size(); ++i)
    if (!options.values[i].empty()) profile.*profileFields[i].member = options.values[i];
  profile.npwp = npwpDigits(profile.npwp);
  requireUsable(profile);
  if (!hasRightCheckDigit(profile.npwp))
    context.err << "Warning: the check digit of NPWP " << formattedNpwp(profile.npwp) << " is wrong.\n";
  createStore(options.path, profile);
  if (context.json) {
    context.out << jsonText({{"store", options.path}, {"npwp", profile.npwp}, {"name", profile.name}}) << '\n';
    return;
  }
  context.out << "Made the store " << options.path << " for " << profile.name << ", NPWP "
              << formattedNpwp(profile.npwp) << ".\n";
}

// --- info ------------------------------------------------------------------------------------------------

using ReturnCounts = std::vector<store::StoredReturn>;

void printInfo(const Context& context, const Filer& filer, const ReturnCounts& returns) {
  context.out << context.storePath << ": store of " << filer.name << ", NPWP " << formattedNpwp(filer.npwp) << '\n';
  if (returns.empty()) {
    context.out << "It holds no returns yet.\n";
    return;
  }
  Table table({{"Return"},
               {"Correction", Table::Align::Right},
               {"Slips", Table::Align::Right},
               {"Self-paid forms", Table::Align::Right}});
  for (const store::StoredReturn& each : returns)
    table.add({Period{each.period.msPajak, each.period.thPajak, 0}.text(), std::to_string(each.period.kdPembetulanKe),
               rupiah(static_cast<double>(each.contents.slips)),
               rupiah(static_cast<double>(each.contents.selfPaidForms))});
  context.out << '\n';
  table.print(context.out);
}

void showInfo(const Context& context) {
  context.connect();
  const Filer filer = readFiler();
  const ReturnCounts returns = store::storedReturns(store::StoreObject());
  if (!context.json) return printInfo(context, filer, returns);
  nlohmann::ordered_json list = nlohmann::ordered_json::array();
  for (const store::StoredReturn& each : returns)
    list.push_back({{"month", each.period.msPajak},
                    {"year", each.period.thPajak},
                    {"correction", each.period.kdPembetulanKe},
                    {"slips", each.contents.slips},
                    {"selfPaidForms", each.contents.selfPaidForms}});
  context.out << jsonText(nlohmann::ordered_json{{"store", context.storePath},
                                                 {"npwp", filer.npwp},
                                                 {"name", filer.name},
                                                 {"address", filer.address},
                                                 {"returns", list}})
              << '\n';
}

}  // namespace

void addStoreCommands(CLI::App& app, Context& context) {
  CLI::App* group =
      app.add_subcommand("store", "Make a store, or tell what one holds")->group(groups::stores)->require_subcommand(1);

  auto options = std::make_shared<CreateOptions>();
  CLI::App* create = group->add_subcommand("create", "Make a new store with its filer");
  create->add_option("PATH", options->path, "The file to make, usually NAME.tarvola")->type_name("")->required();
  create->add_option("--profile", options->profileFile, "A JSON file with the filer's data")->type_name("FILE");
  for (std::size_t i = 0; i < profileFields.size(); ++i)
    create->add_option(std::string("--") + profileFields[i].name, options->values[i], profileFields[i].help);
  create->callback([options, &context] { createStoreFile(*options, context); });

  CLI::App* info = group->add_subcommand("info", "Show the filer and the returns of a store");
  info->callback([&context] { showInfo(context); });
}

}  // namespace tarvola::cli
