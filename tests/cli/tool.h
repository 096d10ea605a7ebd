#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "tarvola/cli/commands.h"

namespace tarvola::test {

struct Outcome {
  int code = 0;
  /// Standard output and standard error together.
  std::string text;
};

/// Runs the tool with the words behind its name.
inline Outcome runTool(const std::vector<std::string>& words) {
  std::ostringstream out;
  const int code = cli::run(words, out, out);
  return {code, out.str()};
}

/// A store of the example's filer with the example month in it: 240 documents, 39 payments and a transfer.
inline void makeExampleMonth(const std::string& storePath) {
  const std::string examples = std::string(TARVOLA_SOURCE_DIR) + "/examples/";
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"store", "create", storePath, "--profile", examples + "profile.json"},
        {"import", examples + "month-2009-01.csv", "-p", "01/2009", "-s", storePath},
        {"payments", "import", examples + "payments-2009-01.csv", "-p", "01/2009", "-s", storePath}}) {
    const Outcome outcome = runTool(words);
    EXPECT_EQ(outcome.code, 0) << outcome.text;
  }
}

}  // namespace tarvola::test
