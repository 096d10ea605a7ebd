#include "tarvola/cli/import_account.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <ostream>
#include <system_error>

#include "tarvola/cli/files.h"
#include "tarvola/cli/table.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::cli {

namespace {

/// Where refused lines go if nobody says: beside the file, "month.csv" to "month.rejected.csv". Somebody may have
/// mended the lines of a former import there and not taken them in yet, so a file that exists stays, and
/// "month.rejected-2.csv" is the next place.
std::string rejectsBeside(const std::string& file) {
  const std::filesystem::path path(file);
  const auto place = [&](const std::string& number) {
    return path.parent_path() / (path.stem().string() + ".rejected" + number + path.extension().string());
  };
  std::filesystem::path free = place("");
  std::error_code ignored;
  for (int number = 2; std::filesystem::exists(std::filesystem::symlink_status(free, ignored)); ++number)
    free = place("-" + std::to_string(number));
  return free.string();
}

void printRefused(const ImportAccount& account, const std::string& rejects, std::ostream& err) {
  constexpr std::size_t most = 20;
  for (std::size_t i = 0; i < account.firstRefused.size() && i < most; ++i)
    err << "line " << account.firstRefused[i].lineNumber << ": " << account.firstRefused[i].reason << '\n';
  if (account.refused > most) err << "... and " << grouped(account.refused - most) << " more\n";
  err << "Refused lines are in " << rejects << " with their reasons. Mend them there and import that file.\n";
}

}  // namespace

void addImportOptions(CLI::App& command, ImportOptions& options, const char* what, Context& context) {
  command.add_option("FILE", options.file, what)->type_name("")->required();
  command.add_option("--rejects", options.rejects, "Where refused lines go (beside the file as FILE.rejected.csv)")
      ->type_name("FILE");
  addPeriodOptions(command, context);
}

FileImport orderOf(const ImportOptions& options, const char* what, const Context& context) {
  context.connect();
  const Period period = context.period();
  requireInputFile(options.file, what);
  const std::string rejects = options.rejects.empty() ? rejectsBeside(options.file) : options.rejects;
  requirePlaceOfRefused(rejects, options.file);
  return {.path = options.file,
          .month = period.month,
          .year = period.year,
          .correction = period.correction,
          .rejectPath = rejects};
}

std::string grouped(std::uint64_t value) { return Format(static_cast<double>(value), "#,##0"); }

std::string counted(std::uint64_t count, const char* one, const char* many) {
  return grouped(count) + ' ' + (count == 1 ? one : many);
}

void printAccount(const ImportAccount& account, const std::string& title, const std::string& rejects,
                  const Context& context) {
  Table table({{title}, {"lines", Table::Align::Right}});
  table.add({"stored", grouped(account.stored)});
  table.add({"already there", grouped(account.alreadyThere)});
  table.add({"refused", grouped(account.refused)});
  table.addRule();
  table.add({"read", grouped(account.read)});
  table.print(context.out);
  if (account.refused > 0) printRefused(account, rejects, context.err);
}

nlohmann::ordered_json countsAsJson(const ImportAccount& account) {
  return {{"read", account.read},
          {"stored", account.stored},
          {"alreadyThere", account.alreadyThere},
          {"refused", account.refused}};
}

nlohmann::ordered_json refusedAsJson(const ImportAccount& account) {
  nlohmann::ordered_json refusedLines = nlohmann::ordered_json::array();
  for (const RefusedLine& line : account.firstRefused)
    refusedLines.push_back({{"line", line.lineNumber}, {"reason", line.reason}});
  return refusedLines;
}

nlohmann::ordered_json rejectsAsJson(const ImportAccount& account, const std::string& rejects) {
  return account.refused > 0 ? nlohmann::ordered_json(rejects) : nlohmann::ordered_json(nullptr);
}

int exitCodeOf(const ImportAccount& account) noexcept { return account.refused > 0 ? Refused : Done; }

}  // namespace tarvola::cli
