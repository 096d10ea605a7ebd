#include "tarvola/runtime/text_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "tests/runtime/failures.h"

namespace tarvola {
namespace {

/// Each test has a folder of its own that goes with it.
class TextFiles : public testing::Test {
 protected:
  void SetUp() override {
    std::string pattern = (std::filesystem::temp_directory_path() / "tarvola-text-XXXXXX").string();
    ASSERT_NE(mkdtemp(pattern.data()), nullptr);
    folder_ = pattern;
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  [[nodiscard]] std::string path(const std::string& name) const { return (folder_ / name).string(); }

  std::string fileOf(const std::string& bytes) const {
    std::ofstream(path("given"), std::ios::binary) << bytes;
    return path("given");
  }

  static std::vector<std::string> linesOf(LineReader& reader) {
    std::vector<std::string> lines;
    for (std::string_view line; reader.next(line);) lines.emplace_back(line);
    return lines;
  }

  std::filesystem::path folder_;
};

TEST_F(TextFiles, AreWrittenInTheAnsiCodePageWithCrLf) {
  TextFile file = TextFile::create(path("a.txt"));
  file.WriteLine("Café €5");
  file.WriteLine("");
  file.Close();
  EXPECT_EQ(readFile(path("a.txt")),
            "Caf\xE9 \x80"
            "5\r\n\r\n");
}

TEST_F(TextFiles, TakeBytesOfTheCodePageAsTheyAre) {
  std::string bytes;
  for (int i = 0; i < 300'000; ++i) bytes += static_cast<char>(i % 251);
  TextFile file = TextFile::create(path("a.txt"));
  file.WriteLine("é");
  file.WriteBytes(bytes);
  file.WriteBytes("");
  file.WriteLine("end");
  file.Close();
  EXPECT_EQ(readFile(path("a.txt")), "\xE9\r\n" + bytes + "end\r\n");
  EXPECT_EQ(failureOf([&] { file.WriteBytes("more"); }), 52);
}

TEST_F(TextFiles, ReplaceAFileOfTheSameName) {
  const std::string name = fileOf("old and longer than the new one");
  TextFile file = TextFile::create(name);
  file.WriteLine("new");
  file.Close();
  EXPECT_EQ(readFile(name), "new\r\n");
}

TEST_F(TextFiles, TakeThePlaceOfAFileThatIsDeleted) {
  namespace fs = std::filesystem;
  const std::string name = fileOf("old and longer than the new one");
  fs::permissions(name, fs::perms::owner_read | fs::perms::owner_write);
  const auto reader = std::ifstream(name);
  TextFile file = TextFile::createAnew(name);
  file.WriteLine("new");
  file.Close();
  EXPECT_EQ(readFile(name), "new\r\n");
  EXPECT_EQ(fs::status(name).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  std::ostringstream old;
  old << reader.rdbuf();
  EXPECT_EQ(old.str(), "old and longer than the new one") << "whoever reads the old file reads on in it";
}

TEST_F(TextFiles, AreEmptiedInsteadWhereAnotherNameWouldKeepTheOldContents) {
  const std::string name = fileOf("old");
  const auto writeThrough = [](const std::string& path) {
    TextFile file = TextFile::createAnew(path);
    file.WriteLine("new");
    file.Close();
  };
  std::filesystem::create_symlink(name, path("link"));
  writeThrough(path("link"));
  EXPECT_EQ(readFile(name), "new\r\n");
  EXPECT_TRUE(std::filesystem::is_symlink(path("link")));
  std::ofstream(name) << "old";
  std::filesystem::create_hard_link(name, path("second"));
  writeThrough(path("second"));
  EXPECT_EQ(readFile(name), "new\r\n");
}

TEST_F(TextFiles, DeleteNoFileWhoseNameIsCutAtANullCharacter) {
  const std::string name = fileOf("kept");
  EXPECT_EQ(failureOf([&] { TextFile::createAnew(name + std::string(1, '\0') + "x"); }), 52);
  EXPECT_EQ(readFile(name), "kept");
}

TEST_F(TextFiles, KeepWhatWasWrittenWhenDroppedWithoutClosing) {
  {
    TextFile file = TextFile::create(path("half.txt"));
    file.WriteLine("half");
  }
  EXPECT_EQ(readFile(path("half.txt")), "half\r\n");
}

TEST_F(TextFiles, MayBeMovedWhileTheyAreWritten) {
  TextFile first = TextFile::create(path("moved.txt"));
  first.WriteLine("one");
  TextFile second = std::move(first);
  second.WriteLine("two");
  second.Close();
  EXPECT_EQ(readFile(path("moved.txt")), "one\r\ntwo\r\n");
}

TEST_F(TextFiles, TakeNothingAfterClosingAndMayBeClosedTwice) {
  TextFile file = TextFile::create(path("closed.txt"));
  file.Close();
  file.Close();
  EXPECT_EQ(failureOf([&] { file.WriteLine("late"); }), 52);
}

TEST_F(TextFiles, HoldManyLines) {
  TextFile file = TextFile::create(path("many.txt"));
  std::string expected;
  for (int i = 0; i < 20000; ++i) {
    const std::string line = "line " + std::to_string(i);
    file.WriteLine(line);
    expected += line + "\r\n";
  }
  file.Close();
  EXPECT_EQ(readFile(path("many.txt")), expected);
}

TEST_F(TextFiles, NameWhyTheyCannotBeMade) {
  std::filesystem::create_directory(folder_ / "sub");
  EXPECT_EQ(failureOf([&] { TextFile::create(path("missing/a.txt")); }), 76);
  EXPECT_EQ(failureOf([&] { TextFile::create(path("sub")); }), 75);
  EXPECT_EQ(failureOf([&] { TextFile::create(fileOf("x") + "/a.txt"); }), 76);
  EXPECT_EQ(failureOf([&] { TextFile::create(""); }), 76);
  EXPECT_EQ(failureOf([&] { TextFile::create(path(std::string("a\0b", 3))); }), 52);
  EXPECT_EQ(failureOf([&] { TextFile::create(path(std::string(5000, 'x'))); }), 57);
  EXPECT_EQ(descriptionOf([&] { TextFile::create(path("missing/a.txt")); }), "Path not found");
}

/// The one who may do everything is refused nothing, so a test that wants to be refused gives its rights away.
class WithoutRights {
 public:
  WithoutRights() : before_(geteuid()) {
    constexpr uid_t nobody = 65534;
    if (before_ == 0) {
      EXPECT_EQ(seteuid(nobody), 0);
    }
  }
  ~WithoutRights() {
    if (before_ == 0) {
      EXPECT_EQ(seteuid(before_), 0);
    }
  }
  WithoutRights(const WithoutRights&) = delete;
  WithoutRights& operator=(const WithoutRights&) = delete;

 private:
  uid_t before_;
};

TEST_F(TextFiles, AreRefusedWithoutTheRight) {
  using std::filesystem::perms;
  const std::string name = fileOf("x");
  std::filesystem::permissions(name, perms::none);
  std::filesystem::permissions(folder_,
                               perms::owner_read | perms::owner_exec | perms::others_read | perms::others_exec);
  {
    const WithoutRights rights;
    EXPECT_EQ(failureOf([&] { TextFile::create(name); }), 70);
    EXPECT_EQ(failureOf([&] { TextFile::create(path("new.txt")); }), 70);
    EXPECT_EQ(failureOf([&] { readFile(name); }), 70);
    EXPECT_EQ(failureOf([&] { LineReader::open(name); }), 70);
  }
  std::filesystem::permissions(folder_, perms::owner_all);
}

TEST(FullDisk, IsToldWhenTheBlockIsHandedOver) {
  TextFile file = TextFile::create("/dev/full");
  const std::string line(1000, 'x');
  EXPECT_EQ(failureOf([&] {
              for (int i = 0; i < 1000; ++i) file.WriteLine(line);
            }),
            61);
  EXPECT_EQ(descriptionOf([&] { file.Close(); }), "Disk full");
}

TEST(FullDisk, IsToldByCloseForAShortFile) {
  TextFile file = TextFile::create("/dev/full");
  file.WriteLine("short");
  EXPECT_EQ(failureOf([&] { file.Close(); }), 61);
  EXPECT_EQ(failureOf([&] { file.Close(); }), 0);
}

TEST_F(TextFiles, AreReadWholeWhateverTheyHold) {
  const std::string bytes("a\0b\r\n\xFF", 6);
  EXPECT_EQ(readFile(fileOf(bytes)), bytes);
  EXPECT_EQ(readFile(fileOf("")), "");
  EXPECT_EQ(failureOf([&] { readFile(path("none.txt")); }), 53);
  EXPECT_EQ(failureOf([&] { readFile(path("none/none.txt")); }), 76);
  EXPECT_EQ(failureOf([&] { readFile(folder_.string()); }), 75);
  EXPECT_EQ(failureOf([&] { readFile(fileOf("x") + "/y"); }), 76);
}

struct LinesRow {
  std::string bytes;
  std::vector<std::string> lines;
};

TEST_F(TextFiles, AreReadLineByLine) {
  const LinesRow rows[] = {
      {"", {}},
      {"a", {"a"}},
      {"a\r\n", {"a"}},
      {"a\n", {"a"}},
      {"a\r\nb\nc", {"a", "b", "c"}},
      {"\r\n\r\n", {"", ""}},
      {"a\r\n\r\n", {"a", ""}},
      {"a\rb\r\n", {"a\rb"}},
      {"a\r", {"a\r"}},
      {"a\r\r\n", {"a\r"}},
      {std::string("a\0b\n", 4), {std::string("a\0b", 3)}},
      {"\xFF\xFE\n", {"\xFF\xFE"}},
  };
  for (const LinesRow& row : rows) {
    LineReader reader = LineReader::open(fileOf(row.bytes));
    EXPECT_EQ(linesOf(reader), row.lines) << row.bytes;
    EXPECT_EQ(reader.bytesRead(), row.bytes.size());
    EXPECT_EQ(reader.bytesTotal(), row.bytes.size());
    std::string_view line;
    EXPECT_FALSE(reader.next(line));
  }
}

TEST_F(TextFiles, GiveLinesOfAnyLengthAroundTheBlocksOfReading) {
  std::string bytes;
  std::vector<std::string> expected;
  for (const std::size_t length : {262142U, 262143U, 262144U, 1U, 524287U, 0U, 1000000U, 262145U, 3U}) {
    expected.emplace_back(length, static_cast<char>('a' + expected.size()));
    bytes += expected.back() + "\r\n";
  }
  LineReader reader = LineReader::open(fileOf(bytes));
  EXPECT_EQ(linesOf(reader), expected);
}

TEST_F(TextFiles, CountTheBytesHandedOut) {
  LineReader reader = LineReader::open(fileOf("abc\r\nde\n"));
  std::string_view line;
  EXPECT_EQ(reader.bytesRead(), 0U);
  ASSERT_TRUE(reader.next(line));
  EXPECT_EQ(reader.bytesRead(), 5U);
  ASSERT_TRUE(reader.next(line));
  EXPECT_EQ(reader.bytesRead(), 8U);
}

TEST_F(TextFiles, RefuseALineThatNeverEnds) {
  const std::string name = fileOf("first\n");
  std::filesystem::resize_file(name, 65U * 1024 * 1024);
  LineReader reader = LineReader::open(name);
  std::string_view line;
  ASSERT_TRUE(reader.next(line));
  EXPECT_EQ(line, "first");
  EXPECT_EQ(descriptionOf([&] { reader.next(line); }), "Line 2 is longer than 67108864 bytes");
}

TEST_F(TextFiles, AreReadFromAPipeWithoutASize) {
  const std::string name = path("pipe");
  ASSERT_EQ(mkfifo(name.c_str(), 0600), 0);
  std::thread writer([&] { std::ofstream(name) << "one\ntwo\n"; });
  LineReader reader = LineReader::open(name);
  EXPECT_EQ(reader.bytesTotal(), 0U);
  EXPECT_EQ(linesOf(reader), (std::vector<std::string>{"one", "two"}));
  writer.join();
}

TEST_F(TextFiles, NameWhyTheyCannotBeReadByLines) {
  EXPECT_EQ(failureOf([&] { LineReader::open(path("none.txt")); }), 53);
  EXPECT_EQ(failureOf([&] { LineReader::open(path("none/none.txt")); }), 76);
  LineReader first = LineReader::open(fileOf("a\nb\n"));
  std::string_view line;
  ASSERT_TRUE(first.next(line));
  LineReader second = std::move(first);
  ASSERT_TRUE(second.next(line));
  EXPECT_EQ(line, "b");
}

}  // namespace
}  // namespace tarvola
