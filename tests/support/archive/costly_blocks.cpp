// Blocks that a careless reader pays for: small ones that ask for much memory or time. Each is a
// function that builds it as often as `many` says.

#include "support/archive/costly_blocks.h"

#include <algorithm>
#include <string>
#include <vector>

#include <OVAddressBookSDK/property.h>

#include "support/archive/overlapping_objects.h"

namespace {

using Number = ArchiveBuilder::Number;
using Uid = ArchiveBuilder::Uid;

std::vector<Number> repeated(std::size_t many, Number number) {
  return std::vector<Number>(many, number);
}

Number fieldsOfClass(ArchiveBuilder& archive, const char* className, const char* key,
                     Number value) {
  return archive.fields({{key, value}, {"$class", archive.to(archive.classNamed(className))}});
}

OVRef<OVData> listOf(ArchiveBuilder& archive, std::size_t many, Number element) {
  return archive.archive(archive.add(
      fieldsOfClass(archive, "NSArray", "NS.objects", archive.array(repeated(many, element)))));
}

/// One item of the property list under many UIDs, all of them in one list.
OVRef<OVData> listOfCopies(ArchiveBuilder& archive, std::size_t many, Number item) {
  std::vector<Uid> uids;
  for (std::size_t i = 0; i < many; ++i) uids.push_back(archive.add(item));
  return archive.archive(archive.arrayOf("NSArray", uids));
}

OVRef<OVData> opaqueWith(ArchiveBuilder& archive, Number value) {
  return archive.archive(archive.object("XY", {{"value", value}}));
}

Number chain(ArchiveBuilder& archive, int length, Number inner) {
  for (int i = 0; i < length; ++i) inner = archive.array({inner, inner, inner});
  return inner;
}

/// Many objects that are one item of the property list with the given fields.
OVRef<OVData> copiesWith(ArchiveBuilder& archive, std::size_t many, const char* className,
                         ArchiveBuilder::Fields fields) {
  fields.emplace_back("$class", archive.to(archive.classNamed(className)));
  return listOfCopies(archive, many, archive.fields(fields));
}

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

const CostlyBlock kBlocks[] = {
    {"ManyReferencesToNull",
     [](ArchiveBuilder& a, std::size_t many) { return listOf(a, many, a.to(0)); }},
    {"ManyReferencesToOneObject",
     [](ArchiveBuilder& a, std::size_t many) {
       return listOf(a, many, a.to(a.object("OVLabel", {})));
     }},
    {"ManyUidsOfNothing",
     [](ArchiveBuilder& a, std::size_t many) {
       for (std::size_t i = 0; i < many; ++i) a.reserve();
       return a.archive(0);
     }},
    {"ManyCopiesOfAText",
     [](ArchiveBuilder& a, std::size_t many) { return listOfCopies(a, many, a.ascii("")); }},
    {"ManyCopiesOfALongText",
     [](ArchiveBuilder& a, std::size_t many) {
       return listOfCopies(a, many, a.ascii(std::string(500, 'x')));
     }},
    {"ManyCopiesOfData",
     [](ArchiveBuilder& a, std::size_t many) { return listOfCopies(a, many, a.bytes("")); }},
    {"ManyCopiesOfANumber",
     [](ArchiveBuilder& a, std::size_t many) { return listOfCopies(a, many, a.integer(0)); }},
    {"ManyCopiesOfAPerson",
     [](ArchiveBuilder& a, std::size_t many) {
       return listOfCopies(a, many, a.fields({{"$class", a.to(a.classNamed("OVPersonGeneral"))}}));
     }},
    {"ManyCopiesOfAnUnknownObject",
     [](ArchiveBuilder& a, std::size_t many) {
       return listOfCopies(a, many, fieldsOfClass(a, "XY", "k", a.null()));
     }},
    {"ManyCopiesOfAnEmptyDictionary",
     [](ArchiveBuilder& a, std::size_t many) {
       const Number none = a.array({});
       return listOfCopies(a, many,
                           a.fields({{"NS.keys", none},
                                     {"NS.objects", none},
                                     {"$class", a.to(a.classNamed("NSMutableDictionary"))}}));
     }},
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
    {"ManyClasses",
     [](ArchiveBuilder& a, std::size_t many) {
       const Number record = a.fields({{"$classname", a.ascii("XY")}});
       std::vector<Uid> objects;
       for (std::size_t i = 0; i < many; ++i) {
         objects.push_back(a.add(a.fields({{"$class", a.to(a.add(record))}})));
       }
       return a.archive(a.arrayOf("NSArray", objects));
     }},
    {"DeepLists",
     [](ArchiveBuilder& a, std::size_t many) {
       Uid list = a.arrayOf("NSArray", {});
       for (std::size_t i = 0; i < fewer(many); ++i) list = a.arrayOf("NSArray", {list});
       return a.archive(list);
     }},
    {"DeepUnknownObjects",
     [](ArchiveBuilder& a, std::size_t many) {
       Uid object = 0;
       for (std::size_t i = 0; i < fewer(many); ++i) object = a.object("XY", {{"n", a.to(object)}});
       return a.archive(object);
     }},
    {"ManyValuesWithOneList",
     [](ArchiveBuilder& a, std::size_t many) {
       const Uid list =
           a.add(fieldsOfClass(a, "NSArray", "NS.objects", a.array(repeated(many, a.to(0)))));
       return listOfCopies(a, many,
                           fieldsOfClass(a, "OVMutableMultipleValue", "valueArray", a.to(list)));
     }},
    {"ManyCopiesOfAFullPerson",
     [](ArchiveBuilder& a, std::size_t many) {
       ArchiveBuilder::Fields fields;
       const Number value = a.to(a.addText(""));
       for (const OVRef<OVProperty> each : OVProperty::StandardPropertyArray()) {
         fields.emplace_back(each->name().view(), value);
       }
       return copiesWith(a, many, "OVPersonGeneral", fields);
     }},
    {"ManyCopiesOfAGroup",
     [](ArchiveBuilder& a, std::size_t many) {
       const Number list = a.to(a.arrayOf("NSArray", {}));
       return copiesWith(a, many, "OVGroupGeneral", {{"subArray", list}, {"persons", list}});
     }},
    {"ManyCopiesOfABook",
     [](ArchiveBuilder& a, std::size_t many) {
       const Number entries = a.to(a.dictionaryOf("NSDictionary", {}, {}));
       return copiesWith(a, many, "OVAddressBookGeneral",
                         {{"personDic", entries}, {"groupDic", entries}});
     }},
    {"ManyCopiesOfATagManager",
     [](ArchiveBuilder& a, std::size_t many) {
       const Number entries = a.to(a.dictionaryOf("NSDictionary", {}, {}));
       return copiesWith(a, many, "OVTagManager",
                         {{"TagsKey", a.to(a.arrayOf("NSArray", {}))},
                          {"TagsDicKey", entries},
                          {"PersonDicKey", entries}});
     }},
    {"ManyCopiesOfAnAddress",
     [](ArchiveBuilder& a, std::size_t many) {
       return copiesWith(a, many, "OVObjectAddress",
                         {{"valueDic", a.to(a.dictionaryOf("NSDictionary", {}, {}))}});
     }},
    {"ManyCopiesOfAnInstantMessage",
     [](ArchiveBuilder& a, std::size_t many) {
       return copiesWith(a, many, "OVObjectInstantMessage", {{"serverName", a.to(a.addText("x"))}});
     }},
    {"ManyCopiesOfAList",
     [](ArchiveBuilder& a, std::size_t many) {
       return copiesWith(a, many, "NSArray", {{"NS.objects", a.array(repeated(many, a.to(0)))}});
     }},
    {"ManyCopiesOfADictionary",
     [](ArchiveBuilder& a, std::size_t many) {
       const Number texts = a.array(repeated(many, a.to(a.addText("x"))));
       return copiesWith(a, many, "NSDictionary", {{"NS.keys", texts}, {"NS.objects", texts}});
     }},
    {"OneDictionaryWithOneKeyManyTimes",
     [](ArchiveBuilder& a, std::size_t many) {
       const Number texts = a.array(repeated(many, a.to(a.addText("x"))));
       return copiesWith(a, 1, "NSDictionary", {{"NS.keys", texts}, {"NS.objects", texts}});
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
    {"ManyEntriesOnTop",
     [](ArchiveBuilder& a, std::size_t many) {
       std::vector<Number> keys;
       for (std::size_t i = 0; i < many; ++i) keys.push_back(a.ascii(std::to_string(i)));
       return a.archiveWithTop(a.dictionary(keys, repeated(many, a.to(0))));
     }},
};

}  // namespace

std::span<const CostlyBlock> costlyBlocks() { return kBlocks; }