#include "tarvola/cli/terminal.h"

#include <fmt/format.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>

#include "tarvola/cli/failure.h"
#include "tarvola/runtime/progress.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::cli {

namespace {

using Clock = std::chrono::steady_clock;
constexpr auto quietTime = std::chrono::seconds(1);

/// Draws the line once the work has taken longer than a person waits without wondering. Many short tasks make a long
/// work too.
class Drawing {
 public:
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
    if (drawn_) fmt::print(stderr, "\r\033[K");
    drawn_ = false;
  }

 private:
  const Clock::time_point started_ = Clock::now();
  bool drawn_ = false;
};

}  // namespace

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

ProgressLine::ProgressLine() {
  if (isatty(STDERR_FILENO) == 0) return;
  setProgressHandler([drawing = Drawing()](std::string_view task, std::uint64_t done, std::uint64_t total) mutable {
    drawing.draw(task, done, total);
  });
}

ProgressLine::~ProgressLine() {
  if (isatty(STDERR_FILENO) == 0) return;
  setProgressHandler({});
  fmt::print(stderr, "\r\033[K");
}

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
