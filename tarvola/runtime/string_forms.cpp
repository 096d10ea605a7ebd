// Parts of texts, counted in characters: Trim, Left, Right, Mid, InStr, Replace and their kin.

#include <algorithm>

#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/runtime/utf8.h"

namespace tarvola {
namespace {

/// Where the character behind so many characters begins. A broken byte at the front counts as a character.
std::size_t offsetBehind(std::string_view text, std::size_t characters) noexcept {
  const std::size_t plain = utf8::asciiLength(text.substr(0, characters));
  std::size_t at = plain;
  for (std::size_t done = plain; done < characters && at < text.size(); ++done) {
    ++at;
    while (at < text.size() && utf8::isContinuation(text[at])) ++at;
  }
  return at;
}

std::size_t positionOf(std::string_view text, std::string_view part, std::size_t start) {
  if (start < 1) fail(ErrorNumber::InvalidProcedureCall);
  const std::size_t from = offsetBehind(text, start - 1);
  if (text.empty() || (from == text.size() && start > Len(text))) return 0;
  const std::size_t at = text.find(part, from);
  return at == std::string_view::npos ? 0 : Len(text.substr(0, at)) + 1;
}

}  // namespace

std::string_view LTrim(std::string_view text) noexcept {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? text.substr(text.size()) : text.substr(first);
}

std::string_view RTrim(std::string_view text) noexcept {
  const std::size_t last = text.find_last_not_of(' ');
  return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

std::string_view Trim(std::string_view text) noexcept { return LTrim(RTrim(text)); }

std::size_t Len(std::string_view text) noexcept {
  if (text.empty()) return 0;
  const auto behindFirst = std::count_if(text.begin() + 1, text.end(), [](char c) { return !utf8::isContinuation(c); });
  return static_cast<std::size_t>(behindFirst) + 1;
}

std::string_view Left(std::string_view text, std::size_t count) noexcept {
  return text.substr(0, offsetBehind(text, count));
}

std::string_view Right(std::string_view text, std::size_t count) noexcept {
  const std::size_t length = Len(text);
  return count >= length ? text : text.substr(offsetBehind(text, length - count));
}

std::string_view Mid(std::string_view text, std::size_t start, std::size_t count) {
  if (start < 1) fail(ErrorNumber::InvalidProcedureCall);
  return Left(text.substr(offsetBehind(text, start - 1)), count);
}

std::size_t InStr(std::string_view text, std::string_view part, std::size_t start) {
  return positionOf(text, part, start);
}

std::size_t InStrText(std::string_view text, std::string_view part, std::size_t start) {
  return positionOf(foldCase(text), foldCase(part), start);
}

std::string Replace(std::string_view text, std::string_view find, std::string_view with) {
  std::string result;
  if (find.empty()) return result.append(text);
  for (std::size_t at = text.find(find); at != std::string_view::npos; at = text.find(find)) {
    result.append(text.substr(0, at)).append(with);
    text.remove_prefix(at + find.size());
  }
  return result.append(text);
}

std::string withoutLineBreaks(std::string text) {
  return text.find("\r\n") == std::string::npos ? std::move(text) : Replace(text, "\r\n", "");
}

}  // namespace tarvola
