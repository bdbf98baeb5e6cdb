#pragma once

#include <cstdint>
#include <memory>
#include <utility>

#include <OVAddressBookSDK/atomic.h>
#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>
#include <OVAddressBookSDK/text_view.h>

namespace ov::detail {
class TagIndex;
}

/// The user's tags on the persons of one address book, kept in the user defaults under an ID that
/// the host chooses.
///
/// Every change writes the whole store at once, without waiting for the disk. Any process that
/// opens a manager afterwards gets what has been written; managers that are already open, in this
/// process or another, do not know of each other: the last to save wins. One thread at a time; only
/// `tagID` may be read while another thread sets it.
///
/// Many changes are faster in a batch, which saves them together at its end:
///
/// \code
/// auto tags = OVTagManager::tagManagerWithID("contacts.tags");
/// {
///   const OVTagManager::Batch batch(tags);
///   for (const char* id : {"mira-1", "noor-2"}) tags->addPersonIDForTag(id, "Friends");
/// }
/// std::cout << tags->personIDsByTag("Friends").size() << "\n";  // 2
/// \endcode
///
/// Lists are handed out live: a change made through one shows in the manager, but is written only
/// with the next save. A program that changes the manager while iterating over such a list iterates
/// over a copy:
///
/// \code
/// auto tags = OVTagManager::tagManagerWithID("contacts.tags");
/// tags->addPersonIDForTag("mira-1", "Friends");
/// for (const auto& tag : tags->tagsByPersonID("mira-1").copy())
///   tags->removePersonIDFromTag("mira-1", tag);
/// std::cout << tags->count() << "\n";  // 0
/// \endcode
class OV_EXPORT OVTagManager : public OVObject, public std::enable_shared_from_this<OVTagManager> {
 public:
  /// While a batch exists, its manager saves nothing, not even by `save`. When the last one ends,
  /// even by an exception, the manager is saved once if anything was to be saved meanwhile.
  class OV_EXPORT Batch {
   public:
    /// A null manager makes a batch that does nothing.
    explicit Batch(OVRef<OVTagManager> manager);
    Batch(const Batch&) = delete;
    Batch& operator=(const Batch&) = delete;
    /// Ends the batch. A failure to save is logged, and the tags stay in memory.
    ~Batch();
    /// Ends the batch here, so that the caller gets the exception when saving fails. Calling it
    /// again has no effect.
    void end();

   private:
    OVRef<OVTagManager> manager_;
  };

  /// The manager stored under the ID, or a new, empty one when nothing is stored there. Writes
  /// nothing. Null for a null ID. Throws `OVInvalidArchive`, which names the ID, when what is
  /// stored is not an archive or is the archive of something else, and leaves it as it is.
  [[nodiscard]] static OVRef<OVTagManager> tagManagerWithID(const OVString& tagID);

  /// An empty manager without an ID. It cannot be saved before it gets one.
  [[nodiscard]] static OVRef<OVTagManager> init();

  /// The key in the user defaults; null when none was given.
  [[nodiscard]] OVString tagID() const { return tagID_.load(); }
  /// Takes effect with the next save; what is stored under the old ID is kept.
  void setTagID(OVString tagID) { tagID_.store(std::move(tagID)); }

  /// Writes the whole manager to the user defaults. Does nothing while the ID is null. Throws
  /// `std::logic_error` for a manager that no `OVRef` owns, as every change does.
  void save();

  /// How many tags are in use.
  [[nodiscard]] std::uint64_t count() const;
  /// Tags in the order of their first use; null past the end.
  [[nodiscard]] OVString tagAtIndex(std::uint64_t index) const;

  /// The live list of the persons that have the tag, in order of tagging; null when there is none
  /// and for null.
  [[nodiscard]] OVList<OVString> personIDsByTag(const OVStringView& tag) const;
  /// The live list of the person's tags, in order of tagging; null when there is none and for null.
  [[nodiscard]] OVList<OVString> tagsByPersonID(const OVStringView& personID) const;

  /// Tags a person; a tag that the person already has keeps its place. Saves. Does nothing, not
  /// even save, when an argument is null.
  void addPersonIDForTag(const OVString& personID, const OVString& tag);

  /// Removes a tag from a person. A tag that nobody has any more is dropped, and so is the list of
  /// a person without tags. Saves. Does nothing, not even save, when an argument is null.
  void removePersonIDFromTag(const OVString& personID, const OVString& tag);

  /// Removes all tags from a person, and the list with the last one, as `removePersonIDFromTag`
  /// does; an empty list left by `removeTag` is kept. Saves after each and once at the end. Does
  /// nothing for null.
  void removeForPersonID(const OVString& personID);

  /// Removes a tag from all persons. A person whose last tag it was keeps an empty list, unlike
  /// with `removePersonIDFromTag`. Saves, for a null tag too.
  void removeTag(const OVString& tag);

  /// Replaces all tags of a person. Saves after each step and once at the end. Does nothing, not
  /// even save, when an argument is null.
  ///
  /// The list is read after the person's old tags have been removed: the person's own live list is
  /// empty by then, so passing it only removes all tags.
  void setTagsForPersonID(const OVList<OVString>& tags, const OVString& personID);

  /// The class under which objects are archived.
  [[nodiscard]] static const OVClass& archivedClass();
  [[nodiscard]] const OVClass* classForCoder() const override;
  void encodeWithCoder(OVKeyedArchiver& coder) const override;
  void initWithCoder(OVKeyedUnarchiver& coder) override;

 protected:
  OVTagManager();

 private:
  friend struct ov::detail::Maker;
  using ListsByText = OVDictionary<OVList<OVString>>;

  void makeMutable();

  // A manager from an archive may lack any of the three: it reads as empty and accepts nothing. So
  // does one that has something else there, which is kept and written back.
  [[nodiscard]] OVList<OVString> tags() const { return ov::cast<OVList<OVString>>(tags_); }
  [[nodiscard]] ListsByText tagKeyDic() const { return ov::cast<ListsByText>(tagKeyDic_); }
  [[nodiscard]] ListsByText personIDDic() const { return ov::cast<ListsByText>(personIDDic_); }

  OVRef<OVObject> tags_;
  OVRef<OVObject> tagKeyDic_;
  OVRef<OVObject> personIDDic_;
  std::shared_ptr<ov::detail::TagIndex> index_;
  unsigned batches_ = 0;
  bool isSaveDue_ = false;  // when the last batch ends
  OVAtomic<OVString> tagID_;
};
