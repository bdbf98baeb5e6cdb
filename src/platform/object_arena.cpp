// Objects and texts of one archive are side by side in large pieces of memory. A piece counts what
// is alive in it and is freed with the last, on whichever thread that is.

#include "platform/object_arena.h"

#include <atomic>
#include <cstdint>
#include <new>
#include <utility>

#include "platform/archive/large_memory.h"

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define __SANITIZE_ADDRESS__
#endif
#endif
#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/asan_interface.h>
#endif

namespace ov::detail {

namespace {

/// Pages begin at multiples of their size, so that an object finds the head of its page.
constexpr std::size_t kPage = 1 << 16;
constexpr std::size_t kLargePiece = 4 << 20;
constexpr std::size_t kManyBytes = kLargePiece / 4;
/// More than a piece has room for. Taken off when the piece is full and its objects are counted.
constexpr std::size_t kFilling = 1 << 30;

#ifdef __SANITIZE_ADDRESS__
constexpr bool kIsWatched = true;
constexpr std::size_t kGap = 16;  // between objects
void forbid(void* from, std::size_t bytes) { __asan_poison_memory_region(from, bytes); }
void allow(void* from, std::size_t bytes) { __asan_unpoison_memory_region(from, bytes); }
#else
constexpr bool kIsWatched = false;
constexpr std::size_t kGap = 0;
void forbid(void* /*from*/, std::size_t /*bytes*/) {}
void allow(void* /*from*/, std::size_t /*bytes*/) {}
#endif

thread_local constinit ObjectArena* currentArena = nullptr;

}  // namespace

/// The beginning of a page.
struct ObjectArena::Page {
  Piece* piece;

  static Page* of(void* object) {
    const auto offset = reinterpret_cast<std::uintptr_t>(object) % kPage;
    return reinterpret_cast<Page*>(static_cast<std::byte*>(object) - offset);
  }
};

/// The beginning of a piece.
struct ObjectArena::Piece {
  explicit Piece(std::size_t size) : bytes(size) {}

  [[nodiscard]] std::byte* end() { return reinterpret_cast<std::byte*>(this) + bytes; }

  void give(std::size_t count) noexcept {
    if (live.fetch_sub(count, std::memory_order_acq_rel) != count) return;
    const std::size_t size = bytes;
    allow(this, size);
    if (size == kPage) {
      ::operator delete(this, std::align_val_t(kPage));
    } else {
      LargeMemory::free(this, size);
    }
  }

  Page firstPage = {this};
  std::atomic<std::size_t> live = kFilling;
  std::size_t bytes;
};

ObjectArena::ObjectArena(std::size_t expected)
    : pieceBytes_(expected < kManyBytes || kIsWatched ? kPage : kLargePiece) {}

ObjectArena::~ObjectArena() { finishPiece(); }

ObjectArena* ObjectArena::current() { return currentArena; }

ObjectArena::Use::Use(ObjectArena* arena) : previous_(std::exchange(currentArena, arena)) {}

ObjectArena::Use::~Use() { currentArena = previous_; }

void* ObjectArena::allocate(std::size_t bytes) {
  const std::size_t room = (bytes + kGap + kAlignment - 1) / kAlignment * kAlignment;
  if (room > static_cast<std::size_t>(end_ - next_)) open();
  ++taken_;
  allow(next_, bytes);
  return std::exchange(next_, next_ + room);
}

void ObjectArena::release(void* object, std::size_t bytes) noexcept {
  forbid(object, bytes);
  Page::of(object)->piece->give(1);
}

/// Goes on to the next page.
void ObjectArena::open() {
  if (piece_ == nullptr || end_ == piece_->end()) {
    addPiece();
  } else {
    // cppcheck-suppress legacyUninitvar ; it takes the new expression for a read of what it makes
    auto* page = ::new (end_) Page{piece_};
    next_ = reinterpret_cast<std::byte*>(page + 1);
    end_ += kPage;
  }
  forbid(next_, static_cast<std::size_t>(end_ - next_));
}

void ObjectArena::addPiece() {
  void* place = pieceBytes_ == kPage ? ::operator new(kPage, std::align_val_t(kPage))
                                     : LargeMemory::resize(nullptr, 0, pieceBytes_);
  if (place == nullptr) throw std::bad_alloc();
  finishPiece();
  piece_ = ::new (place) Piece(pieceBytes_);
  next_ = reinterpret_cast<std::byte*>(piece_ + 1);
  end_ = static_cast<std::byte*>(place) + kPage;
}

void ObjectArena::finishPiece() noexcept {
  if (piece_ != nullptr) piece_->give(kFilling - taken_);
  piece_ = nullptr;
  taken_ = 0;
  next_ = end_ = nullptr;
}

}  // namespace ov::detail
