#include "support/archive/archive_builder.h"

ArchiveBuilder::ArchiveBuilder() { addText("$null"); }

ArchiveBuilder::Uid ArchiveBuilder::add(Number object) {
  archived_.push_back(object);
  return archived_.size() - 1;
}

ArchiveBuilder::Uid ArchiveBuilder::classRecord(std::string_view name,
                                                const std::vector<std::string_view>& ancestors) {
  std::vector<Number> names{ascii(name)};
  for (const std::string_view ancestor : ancestors) names.push_back(ascii(ancestor));
  return add(fields({{"$classname", ascii(name)}, {"$classes", array(names)}}));
}

ArchiveBuilder::Uid ArchiveBuilder::classNamed(std::string_view name) {
  if (const auto at = classes_.find(name); at != classes_.end()) return at->second;
  return classes_.emplace(name, classRecord(name, {"NSObject"})).first->second;
}

ArchiveBuilder::Uid ArchiveBuilder::object(std::string_view className, Fields fields) {
  fields.emplace_back("$class", to(classNamed(className)));
  return add(this->fields(fields));
}

ArchiveBuilder::Number ArchiveBuilder::toAll(const std::vector<Uid>& objects) {
  std::vector<Number> references;
  for (const Uid object : objects) references.push_back(to(object));
  return array(references);
}

ArchiveBuilder::Uid ArchiveBuilder::arrayOf(std::string_view className,
                                            const std::vector<Uid>& elements) {
  return object(className, {{"NS.objects", toAll(elements)}});
}

ArchiveBuilder::Uid ArchiveBuilder::dictionaryOf(std::string_view className,
                                                 const std::vector<Uid>& keys,
                                                 const std::vector<Uid>& values) {
  return object(className, {{"NS.keys", toAll(keys)}, {"NS.objects", toAll(values)}});
}

OVRef<OVData> ArchiveBuilder::archiveWithTop(Number top) {
  return archiveWithHead(
      {{"$version", version()}, {"$archiver", archiver()}, {"$top", top}, {"$objects", objects()}});
}

OVRef<OVData> ArchiveBuilder::archiveWithHead(const Fields& head) {
  return OVData::dataWithText(list(fields(head)));
}
