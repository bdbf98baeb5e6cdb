// What is built once, on its first use, while memory runs out: the use after it builds it whole.

#include <string>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/address_field.h>
#include <OVAddressBookSDK/country.h>
#include <OVAddressBookSDK/instant_message.h>
#include <OVAddressBookSDK/property.h>

#include "support/archive/host_node.h"
#include "support/fakes/fake_platform.h"
#include "support/memory/failing_memory.h"
#include "support/processes/child_process.h"
#include "support/processes/own_process.h"
#include "support/values.h"

namespace {

struct FirstUse {
  const char* name;
  bool (*use)();
};

std::ostream& operator<<(std::ostream& stream, const FirstUse& each) { return stream << each.name; }

bool hasProperties() { return OVProperty::propertyWithName("Note")->name() == "Note"; }

bool hasServices() {
  return OVInstantMessageServer::serverWithName("QQInstant")->displayName() == "QQ";
}

bool hasCountries() { return OVCountry::countryWithCode("de")->name() == "Germany"; }

bool hasAddressFields() { return OVAdressField::fieldWithName(OVAddressFieldCity) != nullptr; }

bool knowsItsClasses() { return unarchived<OVLabel>(archiveOf(labelOf("a")))->name() == "a"; }

bool knowsTheHostsClasses() {
  HostNode::registerClass();
  return unarchived<HostNode>(archiveOf(HostNode::node("a")))->name == "a";
}

bool hasItsPlatform() {
  return OVUserDefaults::standardUserDefaults() != nullptr &&
         OVNotificationCenter::defaultCenter() != nullptr && OVLocale::currentLocale() != nullptr &&
         OVWorkspace::sharedWorkspace() != nullptr && OVLog::sharedLog() != nullptr;
}

class FirstUseInAShortage : public testing::TestWithParam<FirstUse> {};

/// Uses it in a new process, once in a shortage unless `failing` is 0 and then again. Returns
/// whether the shortage was felt, and how many blocks are kept.
struct Outcome {
  bool occurred;
  std::string blocksKept;
};
Outcome useAgain(bool (*use)(), long failing) {
  Pipe pipe;
  ChildProcess process([&] {
    const long before = blocksInUse();
    if (failing > 0) {
      const MemoryShortage shortage(MemoryShortage::Kind::passing, failing);
      try {
        static_cast<void>(use());
      } catch (const std::bad_alloc&) {  // the next use is to be right
      }
    }
    const bool occurred = MemoryShortage::occurred();
    if (!use()) return false;
    const long kept = blocksInUse() - before;
    pipe.write((occurred ? "1" : "0") + std::to_string(kept));
    return true;
  });
  const std::string written = pipe.readAll();
  EXPECT_TRUE(process.succeeded()) << "allocation " << failing;
  if (written.empty()) return {false, ""};
  return {written.front() == '1', written.substr(1)};
}

TEST_P(FirstUseInAShortage, IsMadeUpForByTheNext) {
  expectInOwnProcess([] {
    const auto use = GetParam().use;
    const std::string kept = useAgain(use, 0).blocksKept;
    bool occurred = true;
    for (long failing = 1; occurred && !testing::Test::HasFailure();
         failing = nextToFail(failing)) {
      const Outcome outcome = useAgain(use, failing);
      occurred = outcome.occurred;
      EXPECT_EQ(outcome.blocksKept, kept) << "allocation " << failing;
      EXPECT_TRUE(occurred || failing > 1);
    }
  });
}

INSTANTIATE_TEST_SUITE_P(Of, FirstUseInAShortage,
                         testing::Values(FirstUse{"Properties", hasProperties},
                                         FirstUse{"Services", hasServices},
                                         FirstUse{"Countries", hasCountries},
                                         FirstUse{"AddressFields", hasAddressFields},
                                         FirstUse{"LibraryClasses", knowsItsClasses},
                                         FirstUse{"HostClasses", knowsTheHostsClasses},
                                         FirstUse{"Platform", hasItsPlatform}),
                         testing::PrintToStringParamName());

}  // namespace
