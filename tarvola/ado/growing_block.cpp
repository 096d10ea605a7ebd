#include "tarvola/ado/growing_block.h"

#include <sys/mman.h>

#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

namespace tarvola::ado {
namespace {

constexpr std::size_t largeFrom = std::size_t{1} << 20;
constexpr std::size_t hugePage = std::size_t{1} << 21;

constexpr bool isLarge(std::size_t bytes) { return bytes >= largeFrom; }
constexpr std::size_t wholePages(std::size_t bytes) { return (bytes + hugePage - 1) & ~(hugePage - 1); }

void* mapped(std::size_t bytes) {
  void* const memory = ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) throw std::bad_alloc();
  return memory;
}

}  // namespace

GrowingBlock::~GrowingBlock() { release(); }

GrowingBlock::GrowingBlock(GrowingBlock&& other) noexcept
    : data_(std::exchange(other.data_, nullptr)), bytes_(std::exchange(other.bytes_, 0)) {}

GrowingBlock& GrowingBlock::operator=(GrowingBlock&& other) noexcept {
  if (this == &other) return *this;
  release();
  data_ = std::exchange(other.data_, nullptr);
  bytes_ = std::exchange(other.bytes_, 0);
  return *this;
}

void GrowingBlock::release() noexcept {
  if (isLarge(bytes_)) {
    ::munmap(data_, bytes_);
  } else {
    std::free(data_);
  }
}

void GrowingBlock::growTo(std::size_t bytes) {
  if (bytes <= bytes_) return;
  isLarge(bytes) ? growLarge(wholePages(bytes)) : growSmall(bytes);
}

void GrowingBlock::growSmall(std::size_t bytes) {
  void* const memory = std::realloc(data_, bytes);
  if (memory == nullptr) throw std::bad_alloc();
  data_ = memory;
  bytes_ = bytes;
}

void GrowingBlock::growLarge(std::size_t bytes) {
  if (isLarge(bytes_)) {
    void* const memory = ::mremap(data_, bytes_, bytes, MREMAP_MAYMOVE);
    if (memory == MAP_FAILED) throw std::bad_alloc();
    data_ = memory;
  } else {
    void* const memory = mapped(bytes);
    if (bytes_ != 0) std::memcpy(memory, data_, bytes_);
    release();
    data_ = memory;
  }
  bytes_ = bytes;
  // Advice only: where the system has no huge pages the block works with small ones.
  ::madvise(data_, bytes_, MADV_HUGEPAGE);
}

}  // namespace tarvola::ado
