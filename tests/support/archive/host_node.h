#pragma once

#include <memory>
#include <string>
#include <vector>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>
#include <OVAddressBookSDK/list.h>

/// A host's own archivable class: a node of any graph, rings included. Registered when first made.
class HostNode : public OVObject {
 public:
  static OVRef<HostNode> node(const OVString& name = nullptr) {
    registerClass();
    auto made = std::make_shared<HostNode>();
    made->name = name;
    return made;
  }

  static void registerClass() { OVKeyedUnarchiver::registerClass(record()); }

  OVString name;
  OVRef<OVObject> next;
  std::vector<OVRef<OVObject>> others;

  /// Nodes that are alive.
  static int living() { return counter(); }

  HostNode() { ++counter(); }
  ~HostNode() override { --counter(); }

  const OVClass* classForCoder() const override { return &record(); }

  void encodeWithCoder(OVKeyedArchiver& coder) const override {
    coder.encodeObjectForKey(name, "name");
    coder.encodeObjectForKey(next, "next");
    coder.encodeListForKey(others, "others");
  }

  void initWithCoder(OVKeyedUnarchiver& coder) override {
    name = coder.decodeStringForKey("name");
    next = coder.decodeObjectForKey("next");
    static_cast<void>(coder.decodeListForKey(others, "others"));
  }

  static const OVClass& record() {
    static const OVClass record{"HostNode", nullptr,
                                [] { return OVRef<OVObject>(std::make_shared<HostNode>()); }};
    return record;
  }

 private:
  static int& counter() {
    static int count = 0;
    return count;
  }
};

/// The archive of a graph and the graph read back from it.
inline OVRef<OVData> archiveOf(const OVRef<OVObject>& root) {
  return OVKeyedArchiver::archivedDataWithRootObject(root);
}
inline OVRef<OVObject> unarchived(const OVRef<OVData>& data) {
  return OVKeyedUnarchiver::unarchiveObjectWithData(data);
}
template <class T>
ov::Handle<T> unarchived(const OVRef<OVData>& data) {
  return ov::cast<T>(unarchived(data));
}

/// Reads the archive and writes what was read.
inline OVRef<OVData> passedThrough(const OVRef<OVData>& data) {
  return archiveOf(unarchived(data));
}
