#include <signal.h>

#include <thread>

#include "live_test.h"

namespace {

using namespace std::chrono_literals;
using ov::eds::Call;

/// The service's processes are stopped meanwhile.
class Standstill {
 public:
  Standstill() { send(SIGSTOP); }
  Standstill(const Standstill&) = delete;
  Standstill& operator=(const Standstill&) = delete;
  ~Standstill() { send(SIGCONT); }

 private:
  void send(int signal) const {
    kill(factory_, signal);
    kill(registry_, signal);
  }

  pid_t factory_ = Desktop::ofThisProcess().factory().value();
  pid_t registry_ = Desktop::ofThisProcess().registry().value();
};

/// Books for which each call has something to ask the service.
class LiveCalls : public LiveTest {
 protected:
  using Make = std::function<std::error_code(const Call&)>;

  LiveCalls() {
    setName(told->newPerson(), "Mira", "Halonen");
    EXPECT_FALSE(told->saveWithin({}));
    EXPECT_TRUE(eventually([&] { return told->hasChangesWaiting(); }));
    setName(changed->newPerson(), "Kim", "Seoyeon");
    std::error_code error;
    opened = session->openBook(bookUID, error);
    EXPECT_FALSE(error) << error.message();
  }

  /// All calls that ask the service, but for those that ask a server. The last one ends the rest.
  std::vector<std::pair<const char*, Make>> calls() {
    return {
        {"add a local book", whichFails([this](std::error_code& error, const Call& call) {
           (void)session->addLocalBook("Study", error, call);
         })},
        {"add a book of a server", whichFails([this](std::error_code& error, const Call& call) {
           (void)session->addCardDAVBook("Study", {"http://127.0.0.1:9/", "kaya"}, error, call);
         })},
        {"open a book", whichFails([this](std::error_code& error, const Call& call) {
           (void)session->openBook(bookUID, error, call);
         })},
        {"load", [this](const Call& call) { return opened->load({}, call); }},
        {"apply", whichFails([this](std::error_code& error, const Call& call) {
           (void)told->applyChanges(error, call);
         })},
        {"save", [this](const Call& call) { return changed->saveWithin(call); }},
        {"remove a book", [this](const Call& call) { return session->removeBook(bookUID, call); }},
    };
  }

  OVRef<OVEDSBook> told = openedBook();
  OVRef<OVEDSBook> changed = openedBook();
  OVRef<OVEDSBook> opened;

 private:
  static Make whichFails(std::function<void(std::error_code&, const Call&)> make) {
    return [make = std::move(make)](const Call& call) {
      std::error_code error;
      make(error, call);
      return error;
    };
  }
};

TEST_F(LiveCalls, DoNotBeginWithoutTime) {
  for (const auto time : {0ms, -1ms}) {
    for (const auto& [name, make] : calls()) EXPECT_EQ(make({time}), std::errc::timed_out) << name;
  }
}

TEST_F(LiveCalls, DoNotBeginOnceTheyAreStopped) {
  std::stop_source source;
  source.request_stop();
  for (const auto& [name, make] : calls()) {
    EXPECT_EQ(make({1h, source.get_token()}), std::errc::operation_canceled) << name;
  }
}

TEST_F(LiveCalls, EndWithTheirDeadline) {
  const Standstill standstill;
  for (const auto& [name, make] : calls()) EXPECT_EQ(make({50ms}), std::errc::timed_out) << name;
}

TEST_F(LiveCalls, AreStopped) {
  const Standstill standstill;
  for (const auto& [name, make] : calls()) {
    std::stop_source source;
    std::jthread stopper([&] { source.request_stop(); });
    EXPECT_EQ(make({1h, source.get_token()}), std::errc::operation_canceled) << name;
  }
}

TEST_F(LiveCalls, ThatOpenASessionEndEarlyToo) {
  std::error_code error;
  std::stop_source source;
  source.request_stop();
  EXPECT_EQ(OVEDSSession::open(error, {}, {0ms}), nullptr);
  EXPECT_EQ(error, std::errc::timed_out);
  EXPECT_EQ(OVEDSSession::open(error, {}, {1h, source.get_token()}), nullptr);
  EXPECT_EQ(error, std::errc::operation_canceled);
  // As long as the process has a session, another one has nothing to ask for.
  for (auto* book : {&told, &changed, &opened}) *book = nullptr;
  session = nullptr;
  const Standstill standstill;
  EXPECT_EQ(OVEDSSession::open(error, {}, {50ms}), nullptr);
  EXPECT_EQ(error, std::errc::timed_out);
  std::stop_source later;
  std::jthread stopper([&] { later.request_stop(); });
  EXPECT_EQ(OVEDSSession::open(error, {}, {1h, later.get_token()}), nullptr);
  EXPECT_EQ(error, std::errc::operation_canceled);
}

TEST_F(LiveCalls, ThatOpenASessionDoNotFailWithOthersThatWereGivenUp) {
  for (auto* book : {&told, &changed, &opened}) *book = nullptr;
  session = nullptr;
  for (int i = 0; i < 20; ++i) {
    std::error_code error;
    {
      const Standstill standstill;
      (void)OVEDSSession::open(error, {}, {10ms});
    }
    EXPECT_NE(OVEDSSession::open(error), nullptr) << error.message();
  }
}

TEST_F(LiveCalls, ThatEndedEarlyMayBeMadeAgain) {
  std::error_code error;
  {
    const Standstill standstill;
    EXPECT_EQ(opened->load({}, {50ms}), std::errc::timed_out);
    EXPECT_EQ(changed->saveWithin({50ms}), std::errc::timed_out);
    (void)told->applyChanges(error, {50ms});
    EXPECT_EQ(error, std::errc::timed_out);
    EXPECT_TRUE(told->hasChangesWaiting());
  }
  EXPECT_FALSE(opened->load());
  EXPECT_FALSE(changed->saveWithin({})) << changed->saveError().message();
  EXPECT_TRUE(changed->conflicts().empty());
  EXPECT_TRUE(applied(*told, [](const auto& changes) { return changes.cameIn.size() == 1; }));
  EXPECT_FALSE(opened->load({}, {0ms}));  // nothing to ask for
}

}  // namespace
