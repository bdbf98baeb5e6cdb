#include <string>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/archive/archive_builder.h"
#include "support/archive/host_node.h"
#include "support/archive/refusal.h"

// An archive is refused after a ring has been built: nothing of it may stay behind. A node in the
// ring tells whether it did, where no leak checker runs.

namespace {

using Uid = ArchiveBuilder::Uid;
using Number = ArchiveBuilder::Number;

class RefusedRing : public testing::Test {
 protected:
  RefusedRing() { HostNode::registerClass(); }

  /// The root refers to the ring first and to an object that does not exist then.
  void expectNothingIsLeft(Uid ring) {
    const int before = HostNode::living();
    EXPECT_THAT(refusal(archive_.archive(archive_.arrayOf("NSArray", {ring, 9999}))),
                testing::HasSubstr("past the last"));
    EXPECT_EQ(HostNode::living(), before);
  }

  /// A node that does not refer to the ring.
  Uid witness() { return archive_.object("HostNode", {{"name", archive_.to(text("witness"))}}); }
  Uid text(std::string_view text) { return archive_.addText(text); }

  /// The object at a reserved place.
  void place(Uid uid, std::string_view className, ArchiveBuilder::Fields fields) {
    fields.emplace_back("$class", archive_.to(archive_.classNamed(className)));
    archive_.place(uid, archive_.fields(fields));
  }

  ArchiveBuilder archive_;
};

TEST_F(RefusedRing, OfAList) {
  const Uid ring = archive_.reserve();
  place(ring, "NSMutableArray", {{"NS.objects", archive_.toAll({ring, witness()})}});
  expectNothingIsLeft(ring);
}

TEST_F(RefusedRing, OfADictionary) {
  const Uid ring = archive_.reserve();
  place(ring, "NSMutableDictionary",
        {{"NS.keys", archive_.toAll({text("self"), text("witness")})},
         {"NS.objects", archive_.toAll({ring, witness()})}});
  expectNothingIsLeft(ring);
}

TEST_F(RefusedRing, OfAnUnknownClass) {
  const Uid ring = archive_.reserve();
  place(ring, "XYUnknown",
        {{"self", archive_.fields({{"in", archive_.set({archive_.to(ring)})}})},
         {"witness", archive_.to(witness())}});
  expectNothingIsLeft(ring);
}

TEST_F(RefusedRing, OfASingleValue) {
  const Uid ring = archive_.reserve();
  place(ring, "OVMutableSingleValue",
        {{"value", archive_.to(ring)}, {"label", archive_.to(witness())}});
  expectNothingIsLeft(ring);
}

TEST_F(RefusedRing, OfAMultipleValue) {
  const Uid ring = archive_.reserve();
  const Uid elements = archive_.arrayOf("NSMutableArray", {ring, witness()});
  place(ring, "OVMutableMultipleValue", {{"valueArray", archive_.to(elements)}});
  expectNothingIsLeft(ring);
}

TEST_F(RefusedRing, OfAPerson) {
  const Uid ring = archive_.reserve();
  place(ring, "OVPersonGeneral", {{"Name", archive_.to(ring)}, {"Phone", archive_.to(witness())}});
  expectNothingIsLeft(ring);
}

TEST_F(RefusedRing, OfABook) {
  const Uid ring = archive_.reserve();
  const Uid persons =
      archive_.dictionaryOf("NSMutableDictionary", {text("a"), text("b")}, {ring, witness()});
  place(ring, "OVAddressBookGeneral", {{"personDic", archive_.to(persons)}});
  expectNothingIsLeft(ring);
}

TEST_F(RefusedRing, OfAHostsClassThroughAList) {
  const Uid ring = archive_.reserve();
  place(ring, "HostNode", {{"next", archive_.to(archive_.arrayOf("NSMutableArray", {ring}))}});
  expectNothingIsLeft(ring);
}

TEST_F(RefusedRing, OfAllOfThem) {
  const Uid ring = archive_.reserve();
  const Uid value = archive_.object("OVMutableSingleValue", {{"value", archive_.to(ring)}});
  const Uid person = archive_.object(
      "OVPersonGeneral", {{"Name", archive_.to(value)}, {"Note", archive_.to(witness())}});
  const Uid unknown = archive_.object("XYUnknown", {{"person", archive_.to(person)}});
  const Uid node = archive_.object("HostNode", {{"next", archive_.to(unknown)}});
  place(ring, "NSArray", {{"NS.objects", archive_.toAll({node, ring})}});
  expectNothingIsLeft(ring);
}

}  // namespace
