#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <OVAddressBookSDK/data.h>

#include "support/archive/plist_builder.h"

/// Builds keyed archives in the forms of other writers, broken ones included.
class ArchiveBuilder : public PlistBuilder {
 public:
  /// An object's place in the archive. Object 0 is "$null", which means null.
  using Uid = std::uint64_t;

  ArchiveBuilder();

  /// Puts an object of the property list into the archive.
  Uid add(Number object);
  Uid addText(std::string_view text) { return add(ascii(text)); }
  /// A place whose object comes later, for rings.
  Uid reserve() { return add(0); }
  void place(Uid uid, Number object) { archived_[static_cast<std::size_t>(uid)] = object; }

  /// A record {"$classname", "$classes"}. The ancestors follow the class itself.
  Uid classRecord(std::string_view name, const std::vector<std::string_view>& ancestors);
  /// The one record of a class whose ancestor is the root class alone.
  Uid classNamed(std::string_view name);
  /// An object of such a class.
  Uid object(std::string_view className, Fields fields);
  /// An array object of the class.
  Uid arrayOf(std::string_view className, const std::vector<Uid>& elements);
  Uid dictionaryOf(std::string_view className, const std::vector<Uid>& keys,
                   const std::vector<Uid>& values);

  /// A reference to an object of the archive.
  Number to(Uid object) { return uid(object, object < 0x100 ? 1 : object < 0x10000 ? 2 : 4); }
  Number toAll(const std::vector<Uid>& objects);

  /// The whole archive, with `root` or with other entries on top.
  OVRef<OVData> archive(Uid root) { return archiveWithTop(fields({{"root", to(root)}})); }
  OVRef<OVData> archiveWithTop(Number top);
  /// The archive with a list of objects and a head of the test's own.
  OVRef<OVData> archiveWithHead(const Fields& head);

  Number version() { return integer(100000); }
  Number archiver() { return ascii("NSKeyedArchiver"); }
  Number objects() { return array(archived_); }

 private:
  std::vector<Number> archived_;  // by UID
  std::map<std::string, Uid, std::less<>> classes_;
};
