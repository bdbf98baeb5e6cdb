// One item of a property list under many UIDs: few bytes for many objects.

#include "support/archive/costly_parts.h"

#include <OVAddressBookSDK/property.h>

namespace {

using namespace costly;

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

/// Many objects that are one item of the property list with the given fields.
OVRef<OVData> copiesWith(ArchiveBuilder& archive, std::size_t many, const char* className,
                         ArchiveBuilder::Fields fields) {
  fields.emplace_back("$class", archive.to(archive.classNamed(className)));
  return listOfCopies(archive, many, archive.fields(fields));
}

const CostlyBlock kCopies[] = {
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
    {"ManyClasses",
     [](ArchiveBuilder& a, std::size_t many) {
       const Number record = a.fields({{"$classname", a.ascii("XY")}});
       std::vector<Uid> objects;
       for (std::size_t i = 0; i < many; ++i) {
         objects.push_back(a.add(a.fields({{"$class", a.to(a.add(record))}})));
       }
       return a.archive(a.arrayOf("NSArray", objects));
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
};

}  // namespace

std::span<const CostlyBlock> costlyCopies() { return kCopies; }
