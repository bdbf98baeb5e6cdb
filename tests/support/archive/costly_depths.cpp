// Objects inside each other.

#include "support/archive/costly_parts.h"

#include <algorithm>

#include "support/archive/overlapping_objects.h"

namespace {

using namespace costly;

/// Lists inside each other, the innermost around `inner`.
Uid deepLists(ArchiveBuilder& archive, std::size_t depth, Uid inner) {
  for (std::size_t i = 0; i < depth; ++i) inner = archive.arrayOf("NSArray", {inner});
  return inner;
}

/// Objects of one class inside each other, under one key.
OVRef<OVData> chainOf(ArchiveBuilder& archive, std::size_t many, const char* className,
                      const char* key) {
  Uid object = 0;
  for (std::size_t i = 0; i < many; ++i)
    object = archive.object(className, {{key, archive.to(object)}});
  return archive.archive(object);
}

/// Objects inside each other are large and slow to read: fewer do.
std::size_t fewer(std::size_t many) { return many / 8; }

const CostlyBlock kDepths[] = {
    {"DeepLists",
     [](ArchiveBuilder& a, std::size_t many) {
       return a.archive(deepLists(a, fewer(many), a.arrayOf("NSArray", {})));
     }},
    {"DeepUnknownObjects",
     [](ArchiveBuilder& a, std::size_t many) { return chainOf(a, fewer(many), "XY", "n"); }},
    {"AWideListInsideDeepLists",
     [](ArchiveBuilder& a, std::size_t many) {
       // Few objects, so that a reference takes one byte.
       const std::vector<Number> keys{a.ascii("NS.objects"), a.ascii("$class")};
       const Number type = a.to(a.classNamed("NSArray"));
       const Number wide = a.array(repeated(many, a.to(a.object("OVLabel", {}))));
       const auto listOver = [&](Number array) { return a.add(a.dictionary(keys, {array, type})); };
       Uid list = listOver(a.toAll({listOver(wide), listOver(wide)}));
       for (int i = 0; i < 63; ++i) list = listOver(a.toAll({list}));
       return a.archive(list);
     }},
    {"ManyObjectsInsideVeryDeepLists",
     [](ArchiveBuilder& a, std::size_t many) {
       const Number label = a.fields({{"$class", a.to(a.classNamed("OVLabel"))}});
       std::vector<Uid> labels;
       for (std::size_t i = 0; i < many; ++i) labels.push_back(a.add(label));
       return a.archive(deepLists(a, 600, a.arrayOf("NSArray", labels)));
     }},
    {"DeepObjectsWithTheSameManyKeys",
     [](ArchiveBuilder& /*a*/, std::size_t many) { return overlappingObjects(many, 20); }},
    {"DeepSingleValues",
     [](ArchiveBuilder& a, std::size_t many) {
       return chainOf(a, fewer(many), "OVMutableSingleValue", "value");
     }},
    {"DeepPersons",
     [](ArchiveBuilder& a, std::size_t many) {
       return chainOf(a, fewer(many), "OVPersonGeneral", "Note");
     }},
    {"DeepImages", [](ArchiveBuilder& a,
                      std::size_t many) { return chainOf(a, fewer(many), "OVImage", "data"); }},
    {"DeepDictionaries",
     [](ArchiveBuilder& a, std::size_t many) {
       const Uid key = a.addText("k");
       Uid inner = a.dictionaryOf("NSDictionary", {}, {});
       for (std::size_t i = 0; i < fewer(many); ++i)
         inner = a.dictionaryOf("NSDictionary", {key}, {inner});
       return a.archive(inner);
     }},
    {"DeepMultipleValues",
     [](ArchiveBuilder& a, std::size_t many) {
       Uid inner = 0;
       for (std::size_t i = 0; i < fewer(many); ++i) {
         const Uid list = a.arrayOf("NSArray", {inner});
         inner = a.object("OVMutableMultipleValue", {{"valueArray", a.to(list)}});
       }
       return a.archive(inner);
     }},
    {"DeepPlainArraysInDeepObjects",
     [](ArchiveBuilder& a, std::size_t many) {
       const auto depth = std::min<std::size_t>(fewer(many), 500);
       Number inner = a.array({});
       for (std::size_t i = 0; i < depth; ++i) inner = a.array({inner});
       Uid object = a.object("XY", {{"value", inner}});
       for (std::size_t i = 0; i < depth; ++i) object = a.object("XY", {{"n", a.to(object)}});
       return a.archive(object);
     }},
    {"ARingOfManyLists",
     [](ArchiveBuilder& a, std::size_t many) {
       const Uid first = a.reserve();
       Uid list = first;
       for (std::size_t i = 0; i < fewer(many); ++i) list = a.arrayOf("NSArray", {list});
       a.place(first, fieldsOfClass(a, "NSArray", "NS.objects", a.toAll({list, list})));
       return a.archive(first);
     }},
};

}  // namespace

std::span<const CostlyBlock> costlyDepths() { return kDepths; }
