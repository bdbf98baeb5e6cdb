#pragma once

#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "book/tag_manager/tag_lists.h"
#include "support/archive/archived_fields.h"
#include "support/fakes/recording_defaults.h"

/// What the user defaults hold under "book", and the manager of it.
class TagArchive : public testing::Test {
 protected:
  using TextList = OVList<OVString>;
  using TextLists = OVDictionary<TextList>;

  static void store(const OVRef<OVObject>& object) {
    OVUserDefaults::standardUserDefaults()->setObjectForKey(object, "book");
  }
  static OVRef<OVTagManager> stored() { return OVTagManager::tagManagerWithID("book"); }
  static OVRef<OVTagManager> storedAs(std::vector<ArchivedField> fields) {
    store(
        OVKeyedArchiver::archivedDataWithRootObject(archivedAs("OVTagManager", std::move(fields))));
    return stored();
  }
  static OVRef<OVData> block() {
    return ov::cast<OVData>(OVUserDefaults::standardUserDefaults()->objectForKey("book"));
  }
  static ArchivedForm form() {
    return ArchivedForm(OVKeyedUnarchiver::unarchiveOpaqueObjectWithData(block()));
  }

  const RecordedDefaults defaults;
};
