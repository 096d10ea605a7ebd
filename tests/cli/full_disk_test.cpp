// What the tool leaves where a file cannot be written to its end: a message, no success, no file that looks whole, and
// the store as it was.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/mount.h>
#include <sys/resource.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <new>

#include "tests/cli/tool.h"
#include "tests/support/temp_folder.h"

namespace tarvola::test {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::Not;

/// A disk of its own of a few blocks, mounted on a folder.
class SmallDisk {
 public:
  static constexpr std::size_t blockBytes = 4096;

  SmallDisk() {
    const std::string options = "size=" + std::to_string(blockCount * blockBytes);
    if (::mount("tarvola", folder_.path().c_str(), "tmpfs", 0, options.c_str()) == 0)
      mounted_ = true;
    else
      refusal_ = std::strerror(errno);
  }
  ~SmallDisk() {
    if (!mounted_) return;
    EXPECT_EQ(::umount(folder_.path().c_str()), 0);
  }
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

  [[nodiscard]] bool isMounted() const noexcept { return mounted_; }
  /// Why not, in the system's words.
  [[nodiscard]] const std::string& refusal() const noexcept { return refusal_; }

  /// Fills the disk but for so many blocks.
  void fillUpTo(std::size_t freeBlocks) {
    fs::remove(path("filler"));
    const std::size_t blocks = fs::space(folder_.path()).available / blockBytes;
    folder_.write("filler", std::string((blocks - freeBlocks) * blockBytes, 'x'));
    ASSERT_EQ(fs::space(folder_.path()).available, freeBlocks * blockBytes);
  }
  [[nodiscard]] std::string path(std::string_view file) const { return folder_.path(file); }
  [[nodiscard]] std::string read(std::string_view file) const { return folder_.read(file); }
  void write(std::string_view file, std::string_view bytes) const { folder_.write(file, bytes); }
  /// The names of what lies on it beside the filler.
  [[nodiscard]] std::vector<std::string> names() const {
    std::vector<std::string> all;
    for (const auto& entry : fs::directory_iterator(folder_.path()))
      if (entry.path().filename() != "filler") all.push_back(entry.path().filename());
    return all;
  }

 private:
  static constexpr std::size_t blockCount = 32;

  TempFolder folder_;
  bool mounted_ = false;
  std::string refusal_;
};

/// A way to write a file, and what its success would say.
struct Writing {
  const char* name;
  std::vector<std::string> words;
  const char* success;
  /// Blocks of the disk that hold all of the file but its end; of a report, of its plain lines.
  std::size_t blocksTooFew = 0;
};

class FullDisk : public testing::TestWithParam<Writing> {
 protected:
  void SetUp() override {
    setenv("TARVOLA_SECRET", "rahasia", 1);
    makeExampleMonth(store_);
  }
  void TearDown() override { unsetenv("TARVOLA_SECRET"); }

  [[nodiscard]] Outcome write(const std::string& path, bool force = false) const {
    std::vector<std::string> words = GetParam().words;
    words.insert(words.end(), {path, "-p", "01/2009", "-s", store_});
    if (force) words.emplace_back("--force");
    return runTool(words);
  }
  [[nodiscard]] std::string storeBytes() const { return folder_.read("s.tarvola"); }

  TempFolder folder_;
  std::string store_ = folder_.path("s.tarvola");
};

TEST_P(FullDisk, ShowsAMessageAndLeavesNothing) {
  SmallDisk disk;
  if (!disk.isMounted()) GTEST_SKIP() << "a disk cannot be mounted here: " << disk.refusal();
  const std::string before = storeBytes();
  // Neither the first block of the file finds room, nor the last.
  for (const std::size_t freeBlocks : {std::size_t{0}, GetParam().blocksTooFew}) {
    disk.fillUpTo(freeBlocks);
    const Outcome outcome = write(disk.path("out"));
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.text, "tarvola: " + disk.path("out") +
                                " could not be written: Disk full.\nMake room on the disk, or name another place.\n");
    EXPECT_THAT(disk.names(), testing::IsEmpty()) << freeBlocks;
  }
  EXPECT_EQ(storeBytes(), before);
}

TEST_P(FullDisk, LeavesTheFileThatWasToBeReplaced) {
  SmallDisk disk;
  if (!disk.isMounted()) GTEST_SKIP() << "a disk cannot be mounted here: " << disk.refusal();
  disk.write("out", "the file of yesterday");
  disk.fillUpTo(0);
  EXPECT_EQ(write(disk.path("out"), true).code, 1);
  EXPECT_EQ(disk.read("out"), "the file of yesterday");
  EXPECT_THAT(disk.names(), testing::ElementsAre("out"));
}

TEST_P(FullDisk, ThatHasRoomAgainTakesTheFile) {
  SmallDisk disk;
  if (!disk.isMounted()) GTEST_SKIP() << "a disk cannot be mounted here: " << disk.refusal();
  disk.fillUpTo(0);
  EXPECT_EQ(write(disk.path("out")).code, 1);
  fs::remove(disk.path("filler"));
  const Outcome outcome = write(disk.path("out"));
  EXPECT_EQ(outcome.code, 0) << outcome.text;
  EXPECT_THAT(outcome.text, HasSubstr(GetParam().success));
  EXPECT_THAT(disk.names(), testing::ElementsAre("out"));
}

INSTANTIATE_TEST_SUITE_P(Tool, FullDisk,
                         testing::Values(Writing{"Slips", {"export"}, "Exported", 14},
                                         Writing{"Payments", {"payments", "export"}, "Exported"},
                                         Writing{"Report", {"report", "write"}, "Wrote", 17}),
                         [](const auto& writing) { return std::string(writing.param.name); });

TEST(SavedLines, OnAFullDiskShowAMessageAndLeaveNothing) {
  SmallDisk disk;
  if (!disk.isMounted()) GTEST_SKIP() << "a disk cannot be mounted here: " << disk.refusal();
  setenv("TARVOLA_SECRET", "rahasia", 1);
  const TempFolder folder;
  makeExampleMonth(folder.path("s.tarvola"));
  const std::string report = folder.path("report");
  ASSERT_EQ(runTool({"report", "write", report, "-p", "01/2009", "-s", folder.path("s.tarvola")}).code, 0);
  for (const std::size_t freeBlocks : {std::size_t{0}, std::size_t{15}}) {
    disk.fillUpTo(freeBlocks);
    const Outcome outcome = runTool({"report", "read", report, "--save", disk.path("out")});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.text, "tarvola: " + disk.path("out") +
                                " could not be written: Disk full.\nMake room on the disk, or name another place.\n");
    EXPECT_THAT(disk.names(), testing::IsEmpty()) << freeBlocks;
  }
  unsetenv("TARVOLA_SECRET");
}

// --- without a mount: a file that may not grow further ---------------------------------------------------------

/// No file may be written beyond so many bytes while this lives. A store that is only read needs 32 KiB for itself.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : before_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &old_);
    const rlimit limit{.rlim_cur = bytes, .rlim_max = old_.rlim_max};
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  }
  ~FileSizeLimit() {
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &old_), 0);
    std::signal(SIGXFSZ, before_);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  rlimit old_{};
  void (*before_)(int);
};

class LimitedFile : public FullDisk {};

TEST_P(LimitedFile, ShowsAMessageAndLeavesNothing) {
  const TempFolder out;
  const std::string before = storeBytes();
  Outcome outcome;
  {
    const FileSizeLimit limit(rlim_t{40'000});
    outcome = write(out.path("out"));
  }
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(outcome.text, "tarvola: " + out.path("out") +
                              " could not be written: Device I/O error.\n"
                              "See whether the disk works and how large a file may be, or name another place.\n");
  EXPECT_TRUE(fs::is_empty(out.path()));
  EXPECT_EQ(storeBytes(), before);
}

INSTANTIATE_TEST_SUITE_P(Tool, LimitedFile,
                         testing::Values(Writing{"Slips", {"export"}, "Exported", 14},
                                         Writing{"Report", {"report", "write"}, "Wrote", 17}),
                         [](const auto& writing) { return std::string(writing.param.name); });

// --- standard output -------------------------------------------------------------------------------------------

/// A stream that takes nothing.
class FullBuffer : public std::streambuf {
 protected:
  int overflow(int /*c*/) override { return EOF; }
};

TEST(FullOutput, FailsTheCommandThatPrints) {
  const TempFolder folder;
  makeExampleMonth(folder.path("s.tarvola"));
  FullBuffer full;
  std::ostream out(&full);
  std::ostringstream err;
  EXPECT_EQ(cli::run({"slip", "list", "-p", "01/2009", "-s", folder.path("s.tarvola")}, out, err), 1);
  EXPECT_EQ(err.str(), "tarvola: The output could not be written.\nSee whether the disk is full.\n");
}

/// A stream for which there is no memory.
class StarvingBuffer : public std::streambuf {
 protected:
  int overflow(int /*c*/) override { throw std::bad_alloc(); }
};

TEST(TooLittleMemory, IsToldWithItsRemedy) {
  const TempFolder folder;
  makeExampleMonth(folder.path("s.tarvola"));
  StarvingBuffer starving;
  std::ostream out(&starving);
  out.exceptions(std::ios::badbit);
  std::ostringstream err;
  EXPECT_EQ(cli::run({"slip", "list", "-p", "01/2009", "-s", folder.path("s.tarvola")}, out, err), 1);
  EXPECT_EQ(err.str(),
            "tarvola: There is not enough memory for this.\nEnd other programs, and run the command again.\n");
}

}  // namespace
}  // namespace tarvola::test
