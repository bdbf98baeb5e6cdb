#pragma once

#include <glib-object.h>

#include <memory>
#include <string>
#include <utility>

namespace ov::eds {

struct Unref {
  void operator()(gpointer object) const { g_object_unref(object); }
};
/// Holds one reference to a GObject.
template <class T>
using GRef = std::unique_ptr<T, Unref>;

template <class T>
GRef<T> anotherRef(T* object) {
  return GRef<T>(object == nullptr ? nullptr : static_cast<T*>(g_object_ref(object)));
}

struct Free {
  void operator()(gpointer memory) const { g_free(memory); }
};
using GText = std::unique_ptr<char, Free>;

struct FreeTexts {
  void operator()(GSList* list) const { g_slist_free_full(list, g_free); }
};
/// A list of texts.
using GTexts = std::unique_ptr<GSList, FreeTexts>;

/// The text, freed; "" for null.
inline std::string taken(char* text) {
  const GText owned(text);
  return owned == nullptr ? std::string() : std::string(owned.get());
}

/// Receives a GError. Empty for success.
class Fault {
 public:
  Fault() = default;
  Fault(const Fault&) = delete;
  Fault& operator=(const Fault&) = delete;
  Fault(Fault&& other) noexcept : error_(other.error_) { other.error_ = nullptr; }
  ~Fault() { g_clear_error(&error_); }

  /// For the last argument of a call.
  [[nodiscard]] GError** out() {
    g_clear_error(&error_);
    return &error_;
  }
  [[nodiscard]] const GError* get() const { return error_; }
  [[nodiscard]] GError* release() { return std::exchange(error_, nullptr); }
  explicit operator bool() const { return error_ != nullptr; }

 private:
  GError* error_ = nullptr;
};

}  // namespace ov::eds
