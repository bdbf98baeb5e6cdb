#include "book/tag_manager/tag_lists.h"
#include "support/fakes/locales.h"
#include "support/fakes/recording_defaults.h"

namespace {

TEST(TagLocales, TagsAreTheSameInAll) {
  const RecordedDefaults defaults;
  expectSameInAllLocales([] {
    const auto manager = OVTagManager::tagManagerWithID("book");
    for (const char* tag : {"I", "i", "\u0130", "\u0131", "\u00e4", "z"})
      manager->addPersonIDForTag("P", tag);
    manager->removePersonIDFromTag("P", "i");
    std::string report;
    for (const OVString& tag : tagsOf(*manager)) report += tag.str() + '\n';
    manager->removeForPersonID("P");
    return report;
  });
}

}  // namespace
