#pragma once

#include <memory>
#include <typeinfo>

#include <OVAddressBookSDK/export.h>

class OVKeyedArchiver;
class OVKeyedUnarchiver;
class OVObject;

namespace ov::detail {

/// Makes objects whose constructors only the library and derived classes may call.
struct Maker;

}  // namespace ov::detail

/// A counted reference. Null is the null reference.
template <class T>
using OVRef = std::shared_ptr<T>;

/// Names a class in an archive. The name is part of the stored format.
///
/// Instances are static: an archive and the class table keep their addresses.
struct OVClass {
  /// The name under which objects are recorded.
  const char* name;
  /// The next class up, null for the root object ("NSObject").
  const OVClass* superclass;
  /// Makes an empty object, which `OVObject::initWithCoder` then fills.
  OVRef<OVObject> (*make)();
  /// The class that reads the objects where this one is not registered; null for none. Fields that
  /// only this class has are lost there.
  const OVClass* standIn = nullptr;
  /// True promises that an object keeps everything that it encodes for as long as it lives, and
  /// encodes it once; otherwise what it encodes may come back as several objects. Without the
  /// promise, an archive with an object of a host's class takes about twice the time and more
  /// memory to write.
  bool encodesItsOwnOnce = false;
};

/// The base class of everything that can be archived.
///
/// Objects are compared by identity and are not copyable as C++ values. They are meant for one
/// thread at a time unless their class says more.
class OV_EXPORT OVObject {
 public:
  OVObject(const OVObject&) = delete;
  OVObject& operator=(const OVObject&) = delete;
  constexpr virtual ~OVObject() = default;

  /// The class under which the object is archived; null when it cannot be.
  [[nodiscard]] virtual const OVClass* classForCoder() const;

  /// Writes the object's fields. Called once an archive has given the object its identity.
  virtual void encodeWithCoder(OVKeyedArchiver& coder) const;

  /// Fills an empty object from its archived fields.
  ///
  /// The archive knows the object before it is filled, so that cycles can be read. An object that
  /// the coder returns may itself still be empty: keep the reference, do not look inside.
  virtual void initWithCoder(OVKeyedUnarchiver& coder);

 protected:
  constexpr OVObject() = default;
};

namespace ov {

namespace detail {

/// Whether the object is of exactly this class; false for null.
template <class T>
bool isOfClass(const OVRef<OVObject>& object) {
  if (object == nullptr) return false;
  const OVObject& target = *object;
  return typeid(target) == typeid(T);
}

/// The class of most objects that are read as a T. Specialised for read-only classes.
template <class T>
struct Usual {
  using type = T;
};

/// How a reference to any object is read as a T. Specialised for types with a handle of their own.
template <class T>
struct Cast {
  static OVRef<T> from(const OVRef<OVObject>& object) {
    if (isOfClass<typename Usual<T>::type>(object)) return std::static_pointer_cast<T>(object);
    return std::dynamic_pointer_cast<T>(object);
  }
};

template <>
struct Cast<OVObject> {
  static OVRef<OVObject> from(const OVRef<OVObject>& object) { return object; }
};

/// How a T is held in a collection or a result: by reference, unless it is a handle itself.
template <class T>
struct Handle {
  using type = OVRef<T>;
};

}  // namespace detail

/// `OVRef<T>`, but T itself where that is a handle: `OVString`, a list or a dictionary.
template <class T>
using Handle = typename detail::Handle<T>::type;

/// The checked down-cast: null when `object` is null or of another class.
///
/// `cast<OVString>` gives the text with its identity kept. `cast<OVList<T>>` and
/// `cast<OVDictionary<T>>` give a handle on any list or dictionary; elements of another class read
/// as null through it.
template <class T>
[[nodiscard]] Handle<T> cast(const OVRef<OVObject>& object) {
  return detail::Cast<T>::from(object);
}

}  // namespace ov
