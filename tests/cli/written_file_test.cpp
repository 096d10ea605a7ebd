// Where a file that the tool writes may go, what is told where it cannot, and what a signal leaves of it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "tarvola/cli/files.h"
#include "tarvola/tarvola.h"
#include "tests/cli/tool.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/temp_folder.h"

namespace tarvola::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;

/// A way to write a file out of the example month.
struct Writing {
  const char* name;
  /// Its command; the name of the file comes behind.
  std::vector<std::string> words;
};

class WrittenFile : public testing::TestWithParam<Writing> {
 protected:
  void SetUp() override {
    setenv("TARVOLA_SECRET", "rahasia", 1);
    makeExampleMonth(store_);
  }
  void TearDown() override { unsetenv("TARVOLA_SECRET"); }

  [[nodiscard]] Outcome write(const std::string& path, const std::vector<std::string>& options = {}) const {
    std::vector<std::string> words = GetParam().words;
    words.insert(words.end(), {path, "-p", "01/2009", "-s", store_});
    words.insert(words.end(), options.begin(), options.end());
    return runTool(words);
  }

  TempFolder folder_;
  std::string store_ = folder_.path("s.tarvola");
};

TEST_P(WrittenFile, NeverReplacesAStoreByWhateverName) {
  const std::string before = folder_.read("s.tarvola");
  fs::copy_file(store_, folder_.path("other.tarvola"));
  fs::create_symlink(store_, folder_.path("soft"));
  fs::create_hard_link(store_, folder_.path("hard"));
  for (const char* name : {"s.tarvola", "other.tarvola", "soft", "hard"}) {
    const Outcome outcome = write(folder_.path(name), {"--force"});
    EXPECT_EQ(outcome.code, 1) << name;
    EXPECT_THAT(outcome.text, HasSubstr(" is a store, and all that it holds would be lost.\nGive another name."))
        << name;
  }
  EXPECT_EQ(folder_.read("s.tarvola"), before);
  EXPECT_EQ(folder_.read("other.tarvola"), before);
  EXPECT_TRUE(fs::is_symlink(folder_.path("soft")));
  EXPECT_TRUE(fs::equivalent(store_, folder_.path("hard")));
}

TEST_P(WrittenFile, DoesNotTakeTheNameOfWhatAStoreKeepsBesideItself) {
  for (const char* ending : {"-wal", "-shm", "-journal"}) {
    const Outcome outcome = write(store_ + ending, {"--force"});
    EXPECT_EQ(outcome.code, 1) << ending;
    EXPECT_EQ(outcome.text,
              "tarvola: " + store_ + ending + " belongs to the store " + store_ + ".\nGive another name.\n");
  }
  EXPECT_EQ(write(folder_.path("other-wal")).code, 0);
}

TEST_P(WrittenFile, WithoutANameIsRefused) {
  const Outcome outcome = write("");
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(outcome.text, "tarvola: The name of the file is empty.\nGive one.\n");
}

TEST_P(WrittenFile, ThatTheSystemRefusesIsToldByName) {
  const std::string path = folder_.path(std::string(300, 'a'));
  const Outcome outcome = write(path);
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(outcome.text, "tarvola: " + path + " could not be written: File name too long.\nName another place.\n");
}

TEST_P(WrittenFile, InAFolderThatMayNotBeWrittenIsToldByName) {
  fs::create_directory(folder_.path("closed"));
  fs::permissions(folder_.path("closed"), fs::perms(0555));
  fs::permissions(folder_.path(), fs::perms(0777));
  // Where the administrator runs the tests, the store is given to the user without rights.
  if (geteuid() == 0) {
    ASSERT_EQ(chown(store_.c_str(), OrdinaryUser::nobody, getegid()), 0);
  }
  const std::string path = folder_.path("closed/out");
  Outcome outcome;
  {
    const OrdinaryUser user;
    outcome = write(path);
  }
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(outcome.text, "tarvola: " + path + " could not be written: Permission denied.\nName another place.\n");
}

TEST_P(WrittenFile, OfANameThatIsNoUtf8IsToldAsJsonAllTheSame) {
  const std::string path = folder_.path("\xFF.out");
  const Outcome outcome = write(path, {"--json"});
  EXPECT_EQ(outcome.code, 0) << outcome.text;
  EXPECT_TRUE(fs::exists(path));
  ASSERT_TRUE(nlohmann::json::accept(outcome.text)) << outcome.text;
  EXPECT_EQ(nlohmann::json::parse(outcome.text)["file"], folder_.path("\xEF\xBF\xBD.out"));
}

INSTANTIATE_TEST_SUITE_P(Tool, WrittenFile,
                         testing::Values(Writing{"Slips", {"export"}}, Writing{"Payments", {"payments", "export"}},
                                         Writing{"Report", {"report", "write"}}),
                         [](const auto& writing) { return std::string(writing.param.name); });

TEST(RefusedLines, GoNeitherOverTheirFileNorOverAStore) {
  const TempFolder folder;
  const std::string store = folder.path("s.tarvola");
  makeExampleMonth(store);
  const std::string before = folder.read("s.tarvola");
  struct Import {
    std::vector<std::string> words;
    std::string line;
  };
  const std::string emptyFields(47, ';');
  for (const Import& import :
       {Import{{"import"}, "F113321;1;20x9;0" + emptyFields + "\r\n"},
        Import{{"payments", "import"}, "SSP4;1;20x9;0;0102030405060708;10/02/2009;1;0118;405\r\n"}}) {
    const std::string input = folder.write("month.csv", import.line);
    const auto refusedTo = [&](const std::string& place) {
      std::vector<std::string> words = import.words;
      words.insert(words.end(), {input, "-p", "01/2009", "-s", store, "--rejects", place});
      return runTool(words);
    };
    for (const char* name : {"s.tarvola", "s.tarvola-wal", "month.csv"}) {
      const Outcome outcome = refusedTo(folder.path(name));
      EXPECT_EQ(outcome.code, 1) << name;
      EXPECT_THAT(outcome.text,
                  testing::AnyOf(HasSubstr("Give another name."), HasSubstr("Name another file for them")))
          << name;
    }
    EXPECT_EQ(folder.read("month.csv"), import.line);
    EXPECT_EQ(folder.read("s.tarvola"), before);
    const Outcome outcome = refusedTo(folder.path("refused.csv"));
    EXPECT_EQ(outcome.code, 3) << outcome.text;
    EXPECT_THAT(folder.read("refused.csv"), HasSubstr("20x9"));
    fs::remove(folder.path("refused.csv"));
  }
}

TEST(DamagedText, IsPrintedAsJsonAllTheSame) {
  const TempFolder folder;
  const std::string store = folder.path("s.tarvola");
  makeExampleMonth(store);
  {
    CGeneralClass general;
    general.pSetCon(store, "", "");
    general.pExecQuery("UPDATE DS_FORM_INDUK SET NOBUKTI = '\xFF\xFE' WHERE NOBUKTI = '000001/PPH4'");
  }
  const Outcome outcome = runTool({"slip", "list", "-p", "01/2009", "-s", store, "--json"});
  EXPECT_EQ(outcome.code, 0) << outcome.text;
  EXPECT_TRUE(nlohmann::json::accept(outcome.text));
}

// --- signals ---------------------------------------------------------------------------------------------------

/// Runs work in a process of its own and gives how that ended.
template <class Work>
int endOf(Work work) {
  const pid_t child = fork();
  if (child == 0) {
    work();
    _exit(0);
  }
  int status = -1;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  return status;
}

std::vector<std::string> namesIn(const TempFolder& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder.path())) names.push_back(entry.path().filename());
  return names;
}

class EndingSignal : public testing::TestWithParam<int> {};

TEST_P(EndingSignal, TakesTheUnfinishedFileAwayAndLeavesTheOneBefore) {
  const TempFolder folder;
  const std::string path = folder.write("out", "of yesterday");
  const int status = endOf([&] {
    const cli::FinishedFile file(path, true);
    std::ofstream(file.partPath()) << "half";
    if (!fs::exists(file.partPath())) _exit(1);
    raise(GetParam());
  });
  ASSERT_TRUE(WIFSIGNALED(status)) << status;
  EXPECT_EQ(WTERMSIG(status), GetParam());
  EXPECT_THAT(namesIn(folder), ElementsAre("out"));
  EXPECT_EQ(folder.read("out"), "of yesterday");
}

TEST_P(EndingSignal, ThatTheCallerIgnoresStaysIgnored) {
  const TempFolder folder;
  const int status = endOf([&] {
    signal(GetParam(), SIG_IGN);
    cli::FinishedFile file(folder.path("out"), false);
    std::ofstream(file.partPath()) << "whole";
    raise(GetParam());
    file.finish();
  });
  EXPECT_EQ(status, 0);
  EXPECT_EQ(folder.read("out"), "whole");
}

TEST_P(EndingSignal, BehindTheFileEndsTheProcessAndTheFileStays) {
  const TempFolder folder;
  const int status = endOf([&] {
    {
      cli::FinishedFile file(folder.path("out"), false);
      std::ofstream(file.partPath()) << "whole";
      file.finish();
    }
    raise(GetParam());
  });
  ASSERT_TRUE(WIFSIGNALED(status)) << status;
  EXPECT_EQ(WTERMSIG(status), GetParam());
  EXPECT_EQ(folder.read("out"), "whole");
}

INSTANTIATE_TEST_SUITE_P(Tool, EndingSignal, testing::Values(SIGHUP, SIGINT, SIGTERM));

}  // namespace
}  // namespace tarvola::test
