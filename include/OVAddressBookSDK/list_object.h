#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text_view.h>

namespace ov::detail {

/// The array that all handles on one list share: what an archive holds.
class OV_EXPORT ListObject final : public OVObject {
 public:
  explicit ListObject(bool isImmutable = false) : immutable(isImmutable) {}
  ~ListObject() override;

  /// These throw `std::invalid_argument` for a null item and `std::out_of_range` for a wrong
  /// position.
  void insert(std::size_t index, OVRef<OVObject> item);
  void set(std::size_t index, OVRef<OVObject> item);
  void erase(std::size_t index);
  void clear();
  /// The position of the first equal text; past the end when there is none, and for null.
  [[nodiscard]] std::size_t positionOf(const OVStringView& text) const;

  [[nodiscard]] const OVClass* classForCoder() const override;
  void encodeWithCoder(OVKeyedArchiver& coder) const override;
  void initWithCoder(OVKeyedUnarchiver& coder) override;

  std::vector<OVRef<OVObject>> items;
  /// Counts what adds, removes or reorders elements, so that an iterator notices.
  std::uint32_t changes = 0;
  /// Counts the elements that replaced others, up to its largest value.
  std::uint16_t replacements = 0;
  /// Recorded as "NSArray" instead of "NSMutableArray".
  bool immutable;
};

[[noreturn]] OV_EXPORT void raiseOutOfRange(std::size_t index, std::size_t size);
[[noreturn]] OV_EXPORT void raisePastTheEnd(const char* what);
[[noreturn]] OV_EXPORT void raiseChangedInWalk(const char* what);
[[noreturn]] OV_EXPORT void raiseNullChanged(const char* what);

/// What handles on lists of every element type have in common.
class ListHandle {
 public:
  /// True for null, false for an empty list.
  [[nodiscard]] bool isNull() const { return object_ == nullptr; }
  /// False for null, true for an empty list.
  explicit operator bool() const { return object_ != nullptr; }
  /// How many elements there are; 0 for null.
  [[nodiscard]] std::size_t size() const { return isNull() ? 0 : array().items.size(); }
  /// True for null and for a list without elements.
  [[nodiscard]] bool empty() const { return size() == 0; }
  /// Whether archives record the list as immutable. That is for other programs: here it can still
  /// be changed.
  [[nodiscard]] bool isImmutable() const { return !isNull() && array().immutable; }

  /// The object that all handles on the list share, null for null. `ov::cast` makes a handle of it,
  /// even one that can change a list that was handed out read-only.
  [[nodiscard]] const OVRef<OVObject>& object() const& OV_LIFETIMEBOUND { return object_; }
  [[nodiscard]] OVRef<OVObject> object() && { return std::move(object_); }

  /// Whether both are handles on the same list, or both null.
  friend bool operator==(const ListHandle& a, const ListHandle& b) {
    return a.object_ == b.object_;
  }
  friend bool operator==(const ListHandle& list, std::nullptr_t) { return list.isNull(); }

 protected:
  ListHandle() = default;
  explicit ListHandle(OVRef<OVObject> list) : object_(std::move(list)) {}

  [[nodiscard]] ListObject& array() const { return static_cast<ListObject&>(*object_); }
  [[nodiscard]] ListObject& arrayToChange() const {
    if (isNull()) raiseNullChanged("OVList");
    return array();
  }

 private:
  OVRef<OVObject> object_;
};

/// Equality of elements: texts by their characters, other objects by identity. Null is not an
/// element: what merely reads as null is not equal to it.
template <class Element, class Sought>
bool sameElement(const Element& element, const Sought& sought) {
  return element != nullptr && element == sought;
}

/// The result of `->` for an iterator that makes its elements.
template <class Element>
struct ElementPointer {
  Element element;
  const Element* operator->() const { return &element; }
};

}  // namespace ov::detail
