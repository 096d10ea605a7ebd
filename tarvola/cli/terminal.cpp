#include "tarvola/cli/terminal.h"

#include <fmt/format.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <functional>
#include <ostream>
#include <streambuf>

#include "tarvola/cli/failure.h"
#include "tarvola/runtime/progress.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::cli {

namespace {

using Clock = std::chrono::steady_clock;
constexpr auto quietTime = std::chrono::seconds(1);

/// Does something before each output of a stream while it lives: a stream flushes the one that it is tied to first.
class BeforeOutput : private std::streambuf {
 public:
  BeforeOutput(std::ostream& stream, std::function<void()> work)
      : stream_(stream), work_(std::move(work)), before_(stream.tie(&tied_)) {}
  ~BeforeOutput() override { stream_.tie(before_); }
  BeforeOutput(const BeforeOutput&) = delete;
  BeforeOutput& operator=(const BeforeOutput&) = delete;

 private:
  int sync() override {
    work_();
    return 0;
  }

  std::ostream& stream_;
  std::function<void()> work_;
  std::ostream tied_{this};
  std::ostream* before_;
};

}  // namespace

/// Draws the line once the work has taken longer than a person waits without wondering. Many short tasks make a long
/// work too.
class ProgressLine::Drawing {
 public:
  Drawing(std::ostream& out, std::ostream& err)
      : beforeOut_(out, [this] { clear(); }), beforeErr_(err, [this, &out] {
          clear();
          // A message stands behind what was printed before it.
          out.rdbuf()->pubsync();
        }) {
    setProgressHandler(
        [this](std::string_view task, std::uint64_t done, std::uint64_t total) { draw(task, done, total); });
  }
  ~Drawing() {
    setProgressHandler({});
    clear();
  }
  Drawing(const Drawing&) = delete;
  Drawing& operator=(const Drawing&) = delete;

 private:
  void draw(std::string_view task, std::uint64_t done, std::uint64_t total) {
    if (Clock::now() - started_ < quietTime) return;
    const auto whole = [](std::uint64_t value) { return Format(static_cast<double>(value), "#,##0"); };
    if (total > 0)
      fmt::print(stderr, "\r\033[K{} {} / {} ({} %)", task, whole(done), whole(total), done * 100 / total);
    else
      fmt::print(stderr, "\r\033[K{} {}", task, whole(done));
    std::fflush(stderr);
    drawn_ = true;
    if (total > 0 && done >= total) clear();
  }

  void clear() {
    if (!drawn_) return;
    fmt::print(stderr, "\r\033[K");
    std::fflush(stderr);
    drawn_ = false;
  }

  const Clock::time_point started_ = Clock::now();
  bool drawn_ = false;
  BeforeOutput beforeOut_;
  BeforeOutput beforeErr_;
};

std::string withoutOrigin(std::string_view text) {
  while (text.starts_with('[') && text.find(']') != std::string_view::npos) text = text.substr(text.find(']') + 1);
  return std::string(Trim(text));
}

namespace {

std::string joined(const std::vector<std::string>& texts) {
  std::string all;
  for (const std::string& text : texts) all += (all.empty() ? "" : "\n") + text;
  return all;
}

}  // namespace

ProgressLine::ProgressLine(std::ostream& out, std::ostream& err)
    : drawing_(isatty(STDERR_FILENO) == 0 ? nullptr : std::make_unique<Drawing>(out, err)) {}

ProgressLine::~ProgressLine() = default;

Messages::Messages()
    : scope_([this](const MessageBox& message) {
        const bool isNotice = message.icon == MessageIcon::Information;
        (isNotice ? notices_ : failures_).push_back(withoutOrigin(message.text));
        if (isNotice) noticeTitle_ = message.title;
      }) {}

void Messages::throwIfAny() const {
  if (!failures_.empty()) throw CommandFailure(joined(failures_));
}

void Messages::throwIfNotified(const std::string& remedy) const {
  if (!notices_.empty()) throw CommandFailure(noticeTitle_ + "\n" + joined(notices_) + "\n" + remedy);
}

}  // namespace tarvola::cli
