#pragma once

#include <cstddef>

namespace ov::detail {

/// Memory for the many objects of one archive: cheap to take, and given back in pieces.
///
/// A piece lives as long as the arena fills it or an object in it lives. Objects may be released on
/// any thread, and may outlive the arena; an arena belongs to one thread.
class ObjectArena {
 public:
  /// `expected`: about how many bytes the objects will take; decides how large the pieces are.
  explicit ObjectArena(std::size_t expected);
  ObjectArena(const ObjectArena&) = delete;
  ObjectArena& operator=(const ObjectArena&) = delete;
  ~ObjectArena();

  /// What is larger than this belongs elsewhere.
  static constexpr std::size_t kLargest = 1024;
  static constexpr std::size_t kAlignment = 8;

  /// Room for an object of at most `kLargest` bytes.
  [[nodiscard]] void* allocate(std::size_t bytes);
  /// Gives the room of one object back; `bytes`: how much of it must not be used any more.
  static void release(void* object, std::size_t bytes) noexcept;

  /// The arena that this thread makes objects in; null: none.
  [[nodiscard]] static ObjectArena* current();

  /// Makes an arena, or none, this thread's current one while it lives.
  class Use {
   public:
    explicit Use(ObjectArena* arena);
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;
    ~Use();

   private:
    ObjectArena* previous_;
  };

 private:
  struct Page;
  struct Piece;

  [[gnu::cold]] void open();
  [[gnu::cold]] void addPiece();
  void finishPiece() noexcept;

  const std::size_t pieceBytes_;
  std::byte* next_ = nullptr;
  std::byte* end_ = nullptr;  // of the page that is being filled
  Piece* piece_ = nullptr;
  std::size_t taken_ = 0;  // objects of this piece
};

}  // namespace ov::detail
