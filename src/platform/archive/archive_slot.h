#pragma once

#include <memory>
#include <utility>

#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>

namespace ov::detail {

/// What is under a UID: nothing yet, an object, or a text, which becomes an object only when it is
/// asked for as one. As large as a reference.
class ArchiveSlot {
 public:
  ArchiveSlot() = default;
  ArchiveSlot(ArchiveSlot&&) = default;
  ArchiveSlot& operator=(ArchiveSlot&&) = delete;
  ~ArchiveSlot() {
    if (isText()) heldText()->release();
  }

  /// A handle that takes over the one reference of a new text.
  [[nodiscard]] static OVString adopted(const TextObject* text) { return OVString(text); }

  [[nodiscard]] bool isEmpty() const { return held_ == nullptr; }

  /// Only while the slot is empty; null leaves it so.
  void set(const OVRef<OVObject>& object) { held_ = object; }
  void set(OVString text) {
    const TextObject* taken = std::exchange(text.text_, nullptr);
    held_ = OVRef<OVObject>(std::shared_ptr<void>(), const_cast<TextObject*>(taken));
  }

  [[nodiscard]] const OVRef<OVObject>& object() {
    if (isText()) {
      OVRef<OVObject> object = text();
      heldText()->release();
      held_ = std::move(object);
    }
    return held_;
  }
  /// Null when there is no text.
  [[nodiscard]] OVString text() const {
    if (!isText()) return ov::cast<OVString>(held_);
    heldText()->retain();
    return OVString(heldText());
  }
  /// Null when empty; valid while the slot is.
  [[nodiscard]] OVObject* peek() const { return held_.get(); }

 private:
  // A text is recognised by its reference, which counts nothing.
  [[nodiscard]] bool isText() const { return held_ != nullptr && held_.use_count() == 0; }
  [[nodiscard]] const TextObject* heldText() const {
    return static_cast<const TextObject*>(held_.get());
  }

  OVRef<OVObject> held_;
};

}  // namespace ov::detail
