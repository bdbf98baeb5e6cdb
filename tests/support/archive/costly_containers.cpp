// Containers and texts that are large, or shared over and over inside one object.

#include "support/archive/costly_parts.h"

#include <string>

namespace {

using namespace costly;

OVRef<OVData> opaqueWith(ArchiveBuilder& archive, Number value) {
  return archive.archive(archive.object("XY", {{"value", value}}));
}

Number chain(ArchiveBuilder& archive, int length, Number inner) {
  for (int i = 0; i < length; ++i) inner = archive.array({inner, inner, inner});
  return inner;
}

const CostlyBlock kContainers[] = {
    {"OneDictionaryWithManyKeys",
     [](ArchiveBuilder& a, std::size_t many) {
       std::vector<Uid> keys;
       for (std::size_t i = 0; i < many; ++i) keys.push_back(a.addText(std::to_string(i)));
       return a.archive(a.dictionaryOf("NSDictionary", keys, keys));
     }},
    {"OneObjectWithManyKeys",
     [](ArchiveBuilder& a, std::size_t many) {
       std::vector<Number> keys{a.ascii("$class")};
       std::vector<Number> values{a.to(a.classNamed("XY"))};
       for (std::size_t i = 0; i < many; ++i) {
         keys.push_back(a.ascii(std::to_string(i)));
         values.push_back(values.front());
       }
       return a.archive(a.add(a.dictionary(keys, values)));
     }},
    {"OneObjectWithOneKeyManyTimes",
     [](ArchiveBuilder& a, std::size_t many) {
       std::vector<Number> keys = repeated(many, a.ascii("k"));
       std::vector<Number> values = repeated(many, a.null());
       keys.push_back(a.ascii("$class"));
       values.push_back(a.to(a.classNamed("XY")));
       return a.archive(a.add(a.dictionary(keys, values)));
     }},
    {"PlainArraysOfEmptyArrays",
     [](ArchiveBuilder& a, std::size_t many) {
       return opaqueWith(a, a.array(repeated(many, a.array({}))));
     }},
    {"PlainArraysOfSmallArrays",
     [](ArchiveBuilder& a, std::size_t many) {
       return opaqueWith(a, a.array(repeated(many, a.array({a.null()}))));
     }},
    {"PlainArraysOfSmallDictionaries",
     [](ArchiveBuilder& a, std::size_t many) {
       return opaqueWith(a, a.array(repeated(many, a.fields({{"", a.null()}}))));
     }},
    {"PlainArraysShared",
     [](ArchiveBuilder& a, std::size_t /*many*/) {
       return opaqueWith(a, chain(a, 100, a.array({})));
     }},
    {"PlainArraysInsideEachOther",
     [](ArchiveBuilder& a, std::size_t many) {
       Number inner = a.array({});
       for (std::size_t i = 0; i < many; ++i) inner = a.array({inner});
       return opaqueWith(a, inner);
     }},
    {"LongUtf16Text",
     [](ArchiveBuilder& a, std::size_t many) {
       return a.archive(a.add(a.utf16(std::u16string(many, u'€'))));
     }},
    {"ManyClassNames",
     [](ArchiveBuilder& a, std::size_t many) {
       const Number names = a.array(repeated(many, a.ascii("")));
       return a.archive(a.add(a.fields(
           {{"$class",
             a.to(a.add(a.fields({{"$classname", a.ascii("XY")}, {"$classes", names}})))}})));
     }},
    {"OneDictionaryWithOneKeyManyTimes",
     [](ArchiveBuilder& a, std::size_t many) {
       const Number texts = a.array(repeated(many, a.to(a.addText("x"))));
       return a.archive(a.add(a.fields({{"NS.keys", texts},
                                        {"NS.objects", texts},
                                        {"$class", a.to(a.classNamed("NSDictionary"))}})));
     }},
    {"LabelsWithOneLongUtf16Name",
     [](ArchiveBuilder& a, std::size_t many) {
       const Number name = a.utf16(std::u16string(many * 16, u'€'));
       std::vector<Uid> labels;
       for (int i = 0; i < 50; ++i)
         labels.push_back(a.object("OVLabel", {{"name", a.to(a.add(name))}}));
       return a.archive(a.arrayOf("NSArray", labels));
     }},
    {"AKeyOfLongUtf16Text",
     [](ArchiveBuilder& a, std::size_t many) {
       const Number key = a.utf16(std::u16string(many, u'€'));
       const std::vector<Number> keys{key, a.ascii("$class")};
       return a.archive(a.add(a.dictionary(keys, {a.null(), a.to(a.classNamed("XY"))})));
     }},
    {"ManyEntriesOnTop",
     [](ArchiveBuilder& a, std::size_t many) {
       std::vector<Number> keys;
       for (std::size_t i = 0; i < many; ++i) keys.push_back(a.ascii(std::to_string(i)));
       return a.archiveWithTop(a.dictionary(keys, repeated(many, a.to(0))));
     }},
};

}  // namespace

std::span<const CostlyBlock> costlyContainers() { return kContainers; }
