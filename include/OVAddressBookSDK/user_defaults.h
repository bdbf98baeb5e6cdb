#pragma once

#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>

/// The user's preferences: values by key, kept from one run of the application to the next.
///
/// A value is a text (`OVString`), a block of bytes (`OVData`), a number or truth value
/// (`OVNumber`) or a date (`OVDate`), and keeps its kind. All operations may be called from any
/// thread, and from a forked child: a fork waits for calls in progress on other threads.
///
/// \code
/// auto defaults = OVUserDefaults::standardUserDefaults();
/// defaults->setBoolForKey(true, "ShowPhotos");
/// std::cout << defaults->boolForKey("ShowPhotos") << "\n";  // 1
/// \endcode
///
/// The platform's default keeps one SQLite database for each application. A value is visible at
/// once, to other processes too (preferences some milliseconds late: see `boolForKey`), and
/// survives the death of the process as soon as the call that sets it has returned. If nothing can
/// be written (no home, read-only, disk full, a lock that another process does not release), values
/// are kept in memory, one line is logged, and every later set and `synchronize` tries again;
/// nothing is thrown.
///
/// A host with a store of its own derives from this class and installs it:
///
/// \code
/// class HostDefaults : public OVUserDefaults {
///   OVRef<OVObject> load(const OVString& key) const override { return settings.read(key); }
///   void store(const OVRef<OVObject>& object, const OVString& key) override {
///     object == nullptr ? settings.remove(key) : settings.write(key, object);
///   }
///   bool writeThrough() override { return settings.flush(); }
/// };
/// OVUserDefaults::setStandardUserDefaults(std::make_shared<HostDefaults>());
/// \endcode
class OV_EXPORT OVUserDefaults {
 public:
  OVUserDefaults(const OVUserDefaults&) = delete;
  OVUserDefaults& operator=(const OVUserDefaults&) = delete;
  virtual ~OVUserDefaults();

  /// The store that the library uses; never null.
  [[nodiscard]] static OVRef<OVUserDefaults> standardUserDefaults();
  /// Installs another store; null restores the platform's default.
  static void setStandardUserDefaults(OVRef<OVUserDefaults> defaults);

  /// Names the application whose preferences the platform's default keeps: the name of a folder
  /// under `$XDG_CONFIG_HOME` (`~/.config`). Without it the program's name is used. Call it before
  /// the first use of the standard defaults; later calls change what `standardUserDefaults` returns
  /// from then on. Throws `std::invalid_argument` when `identifier` cannot name a folder: null, "",
  /// ".", "..", containing a "/" or a control character, or longer than 200 bytes.
  static void setApplicationIdentifier(const OVString& identifier);

  /// A new, empty store that lives in memory only; its `synchronize` returns true.
  [[nodiscard]] static OVRef<OVUserDefaults> inMemory();

  /// The truth value under `key`, a preference that may be read very often: what another process
  /// has set takes effect some milliseconds later. A number is true when it is not zero; a text
  /// when, after blanks, a sign and zeros, it begins with a digit from 1 to 9 or one of "YyTt".
  /// False when the entry is absent or of another kind, and for a null key.
  [[nodiscard]] bool boolForKey(const OVString& key) const;
  /// The text under `key`, a preference like the above; null when the entry is absent or of another
  /// kind, and for a null key.
  [[nodiscard]] OVString stringForKey(const OVString& key) const;
  /// Throws `std::invalid_argument` for a null key.
  void setBoolForKey(bool flag, const OVString& key);

  /// The value under `key`, even if another process has just set it; null when there is none, and
  /// for a null key.
  [[nodiscard]] OVRef<OVObject> objectForKey(const OVString& key) const;
  /// Stores `object`; null removes the entry. Throws `std::invalid_argument` for a null key, and
  /// for an object of any class but those above.
  void setObjectForKey(const OVRef<OVObject>& object, const OVString& key);

  /// Makes what was set survive a loss of power. False if some value is not safely stored; it is
  /// kept, and the next call tries again.
  bool synchronize();

 protected:
  OVUserDefaults() = default;

 private:
  /// Called with a key that is not null. Null when there is no entry.
  [[nodiscard]] virtual OVRef<OVObject> load(const OVString& key) const = 0;
  /// The same for a preference: cheap, and maybe some milliseconds late. Calls `load` unless a
  /// store has a faster way.
  [[nodiscard]] virtual OVRef<OVObject> loadPreference(const OVString& key) const;
  /// Called with a key that is not null and a storable object, or null to remove the entry.
  virtual void store(const OVRef<OVObject>& object, const OVString& key) = 0;
  /// Makes what was stored survive a loss of power; false if that failed.
  virtual bool writeThrough() = 0;
};
