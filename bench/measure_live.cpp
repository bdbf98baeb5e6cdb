// Loads a local book of the desktop, and fetches its cards as libebook does: PERSONS. Both leave
// what the cards say until they are asked, so that a name of each is asked for, too.

#include <libebook/libebook.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <thread>
#include <vector>

#include <OVAddressBookEDS/eds_book.h>
#include <OVAddressBookEDS/eds_session.h>

#include "desktop.h"
#include "library_book.h"
#include "meter.h"

namespace {

constexpr int kRuns = 9;

void require(const std::error_code& error) {
  if (error) throw std::runtime_error(error.message());
}

OVString filledBook(OVEDSSession& session, std::uint32_t count) {
  std::error_code error;
  const OVString uid = session.addLocalBook("Measured", error);
  require(error);
  const auto book = session.openBook(uid, error);
  require(error);
  require(book->load());
  const auto persons = bench::libraryBook(count)->personsDic();
  book->addBatchPersonStart(count);
  for (const auto& [id, person] : persons) book->addBatchPersonForOther(person);
  book->addBatchPersonEnd();
  require(book->saveError());
  return uid;
}

/// A program that knows only libebook.
class PlainClient {
 public:
  explicit PlainClient(const OVString& uid)
      : registry_(e_source_registry_new_sync(nullptr, nullptr)),
        // The service's news need somebody who listens.
        listener_([this] { g_main_loop_run(loop_); }) {
    ESource* const source = e_source_registry_ref_source(registry_, uid.str().c_str());
    book_ = reinterpret_cast<EBookClient*>(
        e_book_client_connect_sync(source, static_cast<guint32>(-1), nullptr, nullptr));
    g_object_unref(source);
    if (book_ == nullptr) throw std::runtime_error("libebook does not open the book");
  }
  PlainClient(const PlainClient&) = delete;
  PlainClient& operator=(const PlainClient&) = delete;
  ~PlainClient() {
    g_object_unref(book_);
    g_main_loop_quit(loop_);
    listener_.join();
    g_main_loop_unref(loop_);
    g_object_unref(registry_);
  }

  std::size_t fetch() {
    e_book_client_get_contacts_sync(book_, R"((contains "x-evolution-any-field" ""))", &contacts_,
                                    nullptr, nullptr);
    return g_slist_length(contacts_);
  }
  std::size_t names() const {
    std::size_t length = 0;
    for (const GSList* each = contacts_; each != nullptr; each = each->next) {
      auto* const contact = static_cast<EContact*>(each->data);
      length +=
          std::strlen(static_cast<const char*>(e_contact_get_const(contact, E_CONTACT_FULL_NAME)));
    }
    return length;
  }
  void forget() {
    g_slist_free_full(contacts_, g_object_unref);
    contacts_ = nullptr;
  }

 private:
  GMainLoop* loop_ = g_main_loop_new(nullptr, FALSE);
  ESourceRegistry* registry_;
  std::thread listener_;
  EBookClient* book_ = nullptr;
  GSList* contacts_ = nullptr;
};

std::size_t namesOf(const OVEDSBook& book) {
  std::size_t length = 0;
  for (const OVRef<IOVPerson> person : book.allPersons()) length += person->showName().str().size();
  return length;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::fputs("usage: measure_live PERSONS\n", stderr);
    return 2;
  }
  const auto persons = static_cast<std::uint32_t>(std::atoi(arguments[1]));
  Desktop::ofThisProcess();
  std::error_code error;
  const auto session = OVEDSSession::open(error);
  require(error);
  const OVString uid = filledBook(*session, persons);
  PlainClient plain(uid);

  std::vector<double> fetching;
  std::vector<double> fetchingAndFreeing;
  std::vector<double> opening;
  std::vector<double> loading;
  std::vector<double> both;
  std::vector<double> fetchingNames;
  std::vector<double> loadingNames;
  for (int run = 0; run < kRuns; ++run) {
    std::size_t fetched = 0;
    std::size_t lengths = 0;
    fetchingAndFreeing.push_back(bench::measure(
                                     1,
                                     [&] {
                                       plain.fetch();
                                       plain.forget();
                                     },
                                     [] {})
                                     .seconds);
    fetching.push_back(bench::measure(
                           1, [&] { fetched = plain.fetch(); }, [] {})
                           .seconds);
    fetchingNames.push_back(fetching.back() +
                            bench::measure(
                                1, [&] { lengths += plain.names(); }, [&] { plain.forget(); })
                                .seconds);
    OVRef<OVEDSBook> book;
    opening.push_back(bench::measure(
                          1, [&] { book = session->openBook(uid, error); }, [] {})
                          .seconds);
    require(error);
    loading.push_back(bench::measure(
                          1, [&] { error = book->load(); }, [] {})
                          .seconds);
    require(error);
    both.push_back(opening.back() + loading.back());
    loadingNames.push_back(loading.back() + bench::measure(
                                                1, [&] { lengths += namesOf(*book); }, [] {})
                                                .seconds);
    if (lengths == 0 || fetched != persons || book->allPersonsCount() != persons) return 1;
  }
  std::printf(
      "{\"persons\": %u, \"fetching\": %.6f, \"fetchingAndFreeing\": %.6f, \"opening\": %.6f, "
      "\"loading\": %.6f, \"both\": %.6f, \"fetchingNames\": %.6f, \"loadingNames\": %.6f}\n",
      persons, bench::median(fetching), bench::median(fetchingAndFreeing), bench::median(opening),
      bench::median(loading), bench::median(both), bench::median(fetchingNames),
      bench::median(loadingNames));
}
