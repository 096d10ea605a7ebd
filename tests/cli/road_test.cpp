#include <gtest/gtest.h>

#include <filesystem>

#include "tarvola/tarvola.h"
#include "tests/cli/road.h"
#include "tests/support/temp_folder.h"

namespace tarvola::test {
namespace {

namespace fs = std::filesystem;

const fs::path roadFolder = fs::path(TARVOLA_SOURCE_DIR) / "tests" / "cli" / "roads";

std::vector<std::string> allRoads() {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(roadFolder)) names.push_back(entry.path().stem().string());
  std::sort(names.begin(), names.end());
  return names;
}

/// Empty lines mean nothing in a road, so that steps can stand apart.
std::string withoutEmptyLines(const std::string& text) {
  std::string result;
  for (const char c : text)
    if (c != '\n' || (!result.empty() && result.back() != '\n')) result += c;
  return result;
}

class Road : public testing::TestWithParam<std::string> {};

TEST_P(Road, PrintsWhatIsWritten) {
  const TempFolder folder;
  const fs::path before = fs::current_path();
  fs::current_path(folder.path());
  fs::create_directory_symlink(fs::path(TARVOLA_SOURCE_DIR) / "examples", "examples");
  setToday(Date::fromYmd(2009, 2, 10));
  Walker walker;
  for (const Step& step : readRoad((roadFolder / (GetParam() + ".road")).string()))
    EXPECT_EQ(withoutEmptyLines(walker.run(step.command)), step.expected)
        << "line " << step.line << ": $ " << step.command;
  setToday(std::nullopt);
  fs::current_path(before);
}

INSTANTIATE_TEST_SUITE_P(Tool, Road, testing::ValuesIn(allRoads()), [](const auto& road) { return road.param; });

}  // namespace
}  // namespace tarvola::test
