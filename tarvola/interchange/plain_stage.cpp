#include "tarvola/interchange/plain_stage.h"

#include <new>
#include <utility>

#include "tarvola/runtime/code_page.h"
#include "tarvola/runtime/errors.h"

namespace tarvola::interchange {

namespace {

constexpr std::size_t blockBytes = std::size_t{64} * 1024;

}  // namespace

PlainStage::PlainStage(const std::string& path) : file_(TextFile::create(path)), compression_(std::in_place) {}

PlainStage::~PlainStage() {
  try {
    file_.WriteBytes(block_);
  } catch (const RunTimeError&) {
    // Whoever drops a file without closing it has given up on what is in it.
  }
}

void PlainStage::WriteLine(std::string_view text) {
  appendToAnsi(block_, text);
  block_ += "\r\n";
  if (block_.size() >= blockBytes) passOn();
}

void PlainStage::Close() {
  passOn();
  file_.Close();
}

void PlainStage::passOn() {
  file_.WriteBytes(block_);
  lengthBytes_ += static_cast<std::int64_t>(block_.size());
  compressBlock();
  block_.clear();
}

void PlainStage::compressBlock() noexcept {
  try {
    if (compression_) compression_->add(block_);
  } catch (const std::bad_alloc&) {
    compression_.reset();
  }
}

std::optional<std::string> PlainStage::compressed() noexcept {
  try {
    if (compression_) return compression_->finish();
  } catch (const std::bad_alloc&) {
    // As when an earlier block failed: there is none.
  }
  return std::nullopt;
}

}  // namespace tarvola::interchange
