#include <malloc.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <functional>
#include <new>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "support/archive_builder.h"
#include "support/leaks_tolerated.h"
#include "support/refusal.h"

// A program of its own: it counts every byte that is allocated. However a block is made, reading it
// takes no more than 64 times its size and a mebibyte.

namespace {

std::atomic<std::size_t> inUse = 0;
std::atomic<std::size_t> peak = 0;

constexpr std::size_t kOverhead = sizeof(void*);  // the allocator's own

}  // namespace

void* operator new(std::size_t size) {
  void* place = std::malloc(size);
  if (place == nullptr) throw std::bad_alloc();
  const std::size_t now = inUse += malloc_usable_size(place) + kOverhead;
  std::size_t highest = peak;
  while (now > highest && !peak.compare_exchange_weak(highest, now)) {
  }
  return place;
}
void operator delete(void* place) noexcept {
  if (place == nullptr) return;
  inUse -= malloc_usable_size(place) + kOverhead;
  std::free(place);
}
void operator delete(void* place, std::size_t /*size*/) noexcept { operator delete(place); }

namespace {

using Number = ArchiveBuilder::Number;
using Uid = ArchiveBuilder::Uid;

constexpr std::size_t kMany = 60000;

struct MeanBlock {
  const char* name;
  std::function<OVRef<OVData>(ArchiveBuilder&)> make;
};

void PrintTo(const MeanBlock& block, std::ostream* stream) { *stream << block.name; }

class ArchiveMemory : public testing::TestWithParam<MeanBlock> {};

TEST_P(ArchiveMemory, IsBoundedByTheSizeOfTheBlock) {
  OVRef<OVData> block;
  {
    ArchiveBuilder archive;
    block = GetParam().make(archive);
  }
  for (const bool opaque : {false, true}) {
    const LeaksTolerated tolerated;
    const std::size_t before = inUse;
    peak = before;
    try {
      static_cast<void>(opaque ? OVKeyedUnarchiver::unarchiveOpaqueObjectWithData(block)
                               : OVKeyedUnarchiver::unarchiveObjectWithData(block));
    } catch (const OVInvalidArchive&) {  // refused is bounded as well
    }
    EXPECT_LE(peak - before, 64 * block->size() + (1U << 20)) << block->size();
  }
}

std::vector<Number> repeated(Number number) { return std::vector<Number>(kMany, number); }

Number fieldsOfClass(ArchiveBuilder& archive, const char* className, const char* key,
                     Number value) {
  return archive.fields({{key, value}, {"$class", archive.to(archive.classNamed(className))}});
}

OVRef<OVData> listOf(ArchiveBuilder& archive, Number element) {
  return archive.archive(archive.add(
      fieldsOfClass(archive, "NSArray", "NS.objects", archive.array(repeated(element)))));
}

/// One item of the property list under many UIDs, all of them in one list.
OVRef<OVData> listOfCopies(ArchiveBuilder& archive, Number item) {
  std::vector<Uid> uids;
  for (std::size_t i = 0; i < kMany; ++i) uids.push_back(archive.add(item));
  return archive.archive(archive.arrayOf("NSArray", uids));
}

OVRef<OVData> opaqueWith(ArchiveBuilder& archive, Number value) {
  return archive.archive(archive.object("XY", {{"value", value}}));
}

Number chain(ArchiveBuilder& archive, int length, Number inner) {
  for (int i = 0; i < length; ++i) inner = archive.array({inner, inner, inner});
  return inner;
}

const MeanBlock kBlocks[] = {
    {"ManyReferencesToNull", [](auto& a) { return listOf(a, a.to(0)); }},
    {"ManyReferencesToOneObject", [](auto& a) { return listOf(a, a.to(a.object("OVLabel", {}))); }},
    {"ManyUidsOfNothing",
     [](auto& a) {
       for (std::size_t i = 0; i < kMany; ++i) a.reserve();
       return a.archive(0);
     }},
    {"ManyCopiesOfAText", [](auto& a) { return listOfCopies(a, a.ascii("")); }},
    {"ManyCopiesOfALongText",
     [](auto& a) { return listOfCopies(a, a.ascii(std::string(500, 'x'))); }},
    {"ManyCopiesOfData", [](auto& a) { return listOfCopies(a, a.bytes("")); }},
    {"ManyCopiesOfANumber", [](auto& a) { return listOfCopies(a, a.integer(0)); }},
    {"ManyCopiesOfAPerson",
     [](auto& a) {
       return listOfCopies(a, a.fields({{"$class", a.to(a.classNamed("OVPersonGeneral"))}}));
     }},
    {"ManyCopiesOfAnUnknownObject",
     [](auto& a) { return listOfCopies(a, fieldsOfClass(a, "XY", "k", a.null())); }},
    {"ManyCopiesOfAnEmptyDictionary",
     [](auto& a) {
       const Number none = a.array({});
       return listOfCopies(a, a.fields({{"NS.keys", none},
                                        {"NS.objects", none},
                                        {"$class", a.to(a.classNamed("NSMutableDictionary"))}}));
     }},
    {"OneDictionaryWithManyKeys",
     [](auto& a) {
       std::vector<Uid> keys;
       for (std::size_t i = 0; i < kMany; ++i) keys.push_back(a.addText(std::to_string(i)));
       return a.archive(a.dictionaryOf("NSDictionary", keys, keys));
     }},
    {"OneObjectWithManyKeys",
     [](auto& a) {
       std::vector<Number> keys{a.ascii("$class")};
       std::vector<Number> values{a.to(a.classNamed("XY"))};
       for (std::size_t i = 0; i < kMany; ++i) {
         keys.push_back(a.ascii(std::to_string(i)));
         values.push_back(values.front());
       }
       return a.archive(a.add(a.dictionary(keys, values)));
     }},
    {"OneObjectWithOneKeyManyTimes",
     [](auto& a) {
       std::vector<Number> keys = repeated(a.ascii("k"));
       std::vector<Number> values = repeated(a.null());
       keys.push_back(a.ascii("$class"));
       values.push_back(a.to(a.classNamed("XY")));
       return a.archive(a.add(a.dictionary(keys, values)));
     }},
    {"PlainArraysOfEmptyArrays",
     [](auto& a) { return opaqueWith(a, a.array(repeated(a.array({})))); }},
    {"PlainArraysOfSmallArrays",
     [](auto& a) { return opaqueWith(a, a.array(repeated(a.array({a.null()})))); }},
    {"PlainArraysOfSmallDictionaries",
     [](auto& a) {
       return opaqueWith(a, a.array(repeated(a.fields({{"", a.null()}}))));
     }},
    {"PlainArraysShared", [](auto& a) { return opaqueWith(a, chain(a, 100, a.array({}))); }},
    {"PlainArraysInsideEachOther",
     [](auto& a) {
       Number inner = a.array({});
       for (std::size_t i = 0; i < kMany; ++i) inner = a.array({inner});
       return opaqueWith(a, inner);
     }},
    {"LongUtf16Text",
     [](auto& a) { return a.archive(a.add(a.utf16(std::u16string(kMany, u'€')))); }},
    {"ManyClassNames",
     [](auto& a) {
       const Number names = a.array(repeated(a.ascii("")));
       return a.archive(a.add(a.fields(
           {{"$class",
             a.to(a.add(a.fields({{"$classname", a.ascii("XY")}, {"$classes", names}})))}})));
     }},
    {"ManyClasses",
     [](auto& a) {
       const Number record = a.fields({{"$classname", a.ascii("XY")}});
       std::vector<Uid> objects;
       for (std::size_t i = 0; i < kMany; ++i) {
         objects.push_back(a.add(a.fields({{"$class", a.to(a.add(record))}})));
       }
       return a.archive(a.arrayOf("NSArray", objects));
     }},
    {"DeepLists",
     [](auto& a) {
       Uid list = a.arrayOf("NSArray", {});
       for (std::size_t i = 0; i < kMany; ++i) list = a.arrayOf("NSArray", {list});
       return a.archive(list);
     }},
    {"DeepUnknownObjects",
     [](auto& a) {
       Uid object = 0;
       for (std::size_t i = 0; i < kMany; ++i) object = a.object("XY", {{"n", a.to(object)}});
       return a.archive(object);
     }},
    {"ManyValuesWithOneList",
     [](auto& a) {
       const Uid list =
           a.add(fieldsOfClass(a, "NSArray", "NS.objects", a.array(repeated(a.to(0)))));
       return listOfCopies(a, fieldsOfClass(a, "OVMutableMultipleValue", "valueArray", a.to(list)));
     }},
};

INSTANTIATE_TEST_SUITE_P(, ArchiveMemory, testing::ValuesIn(kBlocks),
                         [](const auto& block) { return block.param.name; });

}  // namespace
