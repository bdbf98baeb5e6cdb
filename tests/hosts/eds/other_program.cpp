// Another program on the desktop, which knows libebook and nothing of this project:
//
//   other_program put BOOK      adds the cards on standard input, or changes those that are there
//   other_program remove BOOK ID
//   other_program phone BOOK NUMBER   gives everybody that phone at work
//   other_program cards BOOK    prints all cards
#include <libebook/libebook.h>
#include <unistd.h>

#include <cstdio>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>
#include <thread>

namespace {

[[noreturn]] void fail(const GError* error) {
  std::fprintf(stderr, "%s\n", error == nullptr ? "?" : error->message);
  std::exit(1);
}

void put(EBookClient* book, const std::string& card) {
  GError* error = nullptr;
  EContact* const contact = e_contact_new_from_vcard(card.c_str());
  const auto* const uid = static_cast<const char*>(e_contact_get_const(contact, E_CONTACT_UID));
  EContact* known = nullptr;
  if (uid != nullptr && e_book_client_get_contact_sync(book, uid, &known, nullptr, nullptr)) {
    if (!e_book_client_modify_contact_sync(book, contact, E_BOOK_OPERATION_FLAG_NONE, nullptr,
                                           &error)) {
      fail(error);
    }
  } else if (!e_book_client_add_contact_sync(book, contact, E_BOOK_OPERATION_FLAG_NONE, nullptr,
                                             nullptr, &error)) {
    fail(error);
  }
}

void putAll(EBookClient* book, const std::string& text) {
  constexpr std::string_view kEnd = "END:VCARD";
  for (std::size_t at = 0; text.find(kEnd, at) != std::string::npos;) {
    const std::size_t end = text.find(kEnd, at) + kEnd.size();
    put(book, text.substr(at, end - at));
    at = end;
    while (at < text.size() && (text[at] == '\r' || text[at] == '\n')) ++at;
  }
}

GSList* allIn(EBookClient* book) {
  GSList* contacts = nullptr;
  GError* error = nullptr;
  if (!e_book_client_get_contacts_sync(book, "(contains \"x-evolution-any-field\" \"\")", &contacts,
                                       nullptr, &error)) {
    fail(error);
  }
  return contacts;
}

void printAll(EBookClient* book) {
  for (const GSList* each = allIn(book); each != nullptr; each = each->next) {
    std::printf("%s\n", e_vcard_to_string(E_VCARD(each->data), EVC_FORMAT_VCARD_30));
  }
}

void setPhones(EBookClient* book, const char* number) {
  GSList* const contacts = allIn(book);
  for (const GSList* each = contacts; each != nullptr; each = each->next) {
    e_contact_set(E_CONTACT(each->data), E_CONTACT_PHONE_BUSINESS, number);
  }
  GError* error = nullptr;
  if (!e_book_client_modify_contacts_sync(book, contacts, E_BOOK_OPERATION_FLAG_NONE, nullptr,
                                          &error)) {
    fail(error);
  }
}

}  // namespace

int main(int count, char** words) {
  if (count < 3) return 2;
  GError* error = nullptr;
  ESourceRegistry* const registry = e_source_registry_new_sync(nullptr, &error);
  if (registry == nullptr) fail(error);
  // The service's news need somebody who listens.
  std::thread([] { g_main_loop_run(g_main_loop_new(nullptr, FALSE)); }).detach();
  ESource* const source = e_source_registry_ref_source(registry, words[2]);
  if (source == nullptr) return 3;
  auto* const book = reinterpret_cast<EBookClient*>(
      e_book_client_connect_sync(source, static_cast<guint32>(-1), nullptr, &error));
  if (book == nullptr) fail(error);
  const std::string_view command = words[1];
  if (command == "put") putAll(book, {std::istreambuf_iterator<char>(std::cin), {}});
  if (command == "cards") printAll(book);
  if (command == "phone") setPhones(book, words[3]);
  if (command == "remove" && !e_book_client_remove_contact_by_uid_sync(
                                 book, words[3], E_BOOK_OPERATION_FLAG_NONE, nullptr, &error)) {
    fail(error);
  }
  std::fflush(stdout);
  _exit(0);
}
