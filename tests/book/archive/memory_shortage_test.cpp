// Saving and restoring while memory runs out, at each allocation in turn.

#include <functional>
#include <set>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/persons_to_list.h>

#include "book/archive/sample_graphs.h"
#include "book/archive/small_book.h"
#include "support/archive/archive_builder.h"
#include "support/archive/host_node.h"
#include "support/memory/failing_memory.h"
#include "support/values.h"

namespace {

/// Saving the graph gives these bytes however often it has failed before.
void expectSavesWhole(const OVRef<OVObject>& graph) {
  const std::string expected(archiveOf(graph)->text());
  failEachAllocation([&] { return OVKeyedArchiver::archivedDataWithRootObject(graph); },
                     [&](const OVRef<OVData>& block) {
                       ASSERT_NE(block, nullptr);
                       EXPECT_TRUE(block->text() == expected);
                     });
}

/// Restoring the block gives the same graph however often it has failed before.
void expectRestoresWhole(const OVRef<OVData>& block) {
  const std::string expected(archiveOf(unarchived(block))->text());
  failEachAllocation(
      [&] { return OVKeyedUnarchiver::unarchiveObjectWithData(block); },
      [&](const OVRef<OVObject>& graph) { EXPECT_TRUE(archiveOf(graph)->text() == expected); });
}

/// Nodes one after the other, shared, and beside other objects.
OVRef<HostNode> hostGraph() {
  const auto root = HostNode::node("root");
  root->next = HostNode::node("next");
  root->others = {root->next, labelOf("label"), OVString("text"), nullptr};
  return root;
}

/// Calls `expect` with a graph for each class that archives hold, and with a whole book.
template <class Expect>
void forEachGraph(Expect expect) {
  // Thousands of labels fail as hundreds do; what refers to itself is never released.
  const std::set<std::string> leftOut{"widest_references", "book", "ring"};
  for (const SampleGraph& each : sampleGraphs()) {
    if (leftOut.contains(each.name)) continue;
    SCOPED_TRACE(each.name);
    expect(each.make());
  }
}

TEST(MemoryShortage, LeavesEveryGraphSavable) { forEachGraph(expectSavesWhole); }

TEST(MemoryShortage, LeavesEveryBlockRestorable) {
  forEachGraph([](const OVRef<OVObject>& graph) { expectRestoresWhole(archiveOf(graph)); });
}

/// Once the memory is gone for good, everything can still be released.
void expectIsReleased(const std::function<OVRef<OVObject>()>& make) {
  static_cast<void>(make());  // builds what is built on first use
  const long before = blocksInUse();
  OVRef<OVObject> graph = make();
  {
    const MemoryShortage shortage(MemoryShortage::Kind::lasting, 1);
    graph.reset();
  }
  EXPECT_EQ(blocksInUse(), before);
}

TEST(MemoryShortage, LetsEveryGraphGo) {
  forEachGraph([](const OVRef<OVObject>& graph) {
    const auto block = archiveOf(graph);
    expectIsReleased([&] { return OVKeyedUnarchiver::unarchiveObjectWithData(block); });
    expectIsReleased([&] { return OVKeyedUnarchiver::unarchiveOpaqueObjectWithData(block); });
  });
}

TEST(MemoryShortage, LetsLongChainsGo) {
  constexpr int kLength = 100'000;
  const auto chain = [] {
    auto last = textValue("end");
    for (int i = 0; i < kLength; ++i) last = valueOf(OVValueTypeString, std::move(last));
    return last;
  };
  const auto block = archiveOf(chain());
  expectIsReleased(chain);
  expectIsReleased([&] { return OVKeyedUnarchiver::unarchiveOpaqueObjectWithData(block); });
}

TEST(MemoryShortage, LeavesAHostsGraphSavableAndRestorable) {
  const auto graph = hostGraph();
  const int before = HostNode::living();
  expectSavesWhole(graph);
  expectRestoresWhole(archiveOf(graph));
  EXPECT_EQ(HostNode::living(), before);
}

TEST(MemoryShortage, LeavesNothingOfABlockReadWithoutClasses) {
  const auto block = smallBook()->saveToData();
  const auto read = [&] { return OVKeyedUnarchiver::unarchiveOpaqueObjectWithData(block); };
  const auto expected = archiveOf(read());
  failEachAllocation(read, [&](const OVRef<OVObject>& graph) {
    EXPECT_TRUE(archiveOf(graph)->text() == expected->text());
  });
}

TEST(MemoryShortage, LeavesNothingOfPersonsToList) {
  const auto block = smallBook()->saveToData();
  failEachAllocation([&] { return ov::personsToList(block); },
                     [&](const OVDictionary<const OVPersonGeneral>& persons) {
                       EXPECT_EQ(persons.size(), bookIn(block)->personsDic().size());
                     });
}

TEST(MemoryShortage, LeavesNothingOfARingThatWasHalfRead) {
  ArchiveBuilder archive;
  const auto ring = archive.reserve();
  const auto label = archive.object("OVLabel", {{"name", archive.to(archive.addText("label"))}});
  archive.place(
      ring, archive.fields({{"value", archive.to(ring)},
                            {"label", archive.to(label)},
                            {"$class", archive.to(archive.classNamed("OVMutableSingleValue"))}}));
  const auto block = archive.archive(ring);
  failEachAllocation(
      [&] {
        auto value =
            ov::cast<OVMutableSingleValue>(OVKeyedUnarchiver::unarchiveObjectWithData(block));
        EXPECT_EQ(value->value(), value);
        value->setValue(nullptr);
        return value;
      },
      [](const OVRef<OVMutableSingleValue>& value) { EXPECT_EQ(value->label()->name(), "label"); });
}

}  // namespace
