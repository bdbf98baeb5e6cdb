// A file is loaded in one transaction: all of its cards, or none when memory runs out.

#include <OVAddressBookVCard/vcard_book.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <span>

#include <OVAddressBookVCard/vcard_export.h>

#include "book_content.h"
#include "codec/card_reader.h"
#include "codec/file_text.h"
#include "file_bytes.h"
#include "group_objects.h"
#include "memory/card_id.h"
#include "memory/general_group.h"
#include "memory/import_transaction.h"
#include "problem_list.h"

using ov::card::Group;
using ov::card::Store;
using ov::vcard::BookContent;

namespace {

OVString absolutePath(const OVString& path) {
  std::error_code error;
  const std::filesystem::path absolute = std::filesystem::absolute(path.str(), error);
  return error ? path : OVString(absolute.lexically_normal().string());
}

/// Adds the cards in `bytes` to the book. `file` names them in problems and may be null. `progress`
/// may be empty; it gets the number of bytes read so far, finally all of them.
void loadCards(BookContent& book, std::string bytes, const OVString& file,
               const ov::vcard::Progress& progress) {
  constexpr std::size_t kCardsBetweenReports = 64;
  ov::vcard::ProblemList problems(file);
  const auto text =
      std::make_shared<const std::string>(ov::card::textOfFile(std::move(bytes), problems));
  ov::card::ImportTransaction transaction(*book.store, file, text, problems);
  ov::card::CardReader reader(*text, problems);
  std::size_t count = 0;
  while (const ov::card::Card* const card = reader.next()) {
    transaction.add(*card);
    if (progress && ++count % kCardsBetweenReports == 0) progress(reader.offset(), text->size());
  }
  if (progress) progress(text->size(), text->size());
  transaction.prepare();
  std::vector<OVVCardProblem> found = problems.take();
  for (const Group::Place& ring : transaction.ringsCut()) {
    found.push_back({OVVCardSeverity::Warning, ring.origin, ring.line,
                     "this group contains itself; one membership was ignored"});
  }
  book.problems.reserve(book.problems.size() + found.size());
  transaction.commit();
  std::move(found.begin(), found.end(), std::back_inserter(book.problems));
}

}  // namespace

OVVCardBook::OVVCardBook(const OVString& path) : content_(std::make_shared<BookContent>()) {
  ov::card::GeneralGroup::registerClass();
  content_->path = path.isNull() ? path : absolutePath(path);
  content_->store = std::make_shared<Store>(&ov::vcard::GroupObjects::make);
  content_->store->id = path.isNull() ? ov::card::randomID() : content_->path;
}

OVVCardBook::~OVVCardBook() = default;

OVRef<OVVCardBook> OVVCardBook::init() { return OVRef<OVVCardBook>(new OVVCardBook(nullptr)); }

OVRef<OVVCardBook> OVVCardBook::initWithPath(const OVString& path) {
  return path.empty() ? nullptr : OVRef<OVVCardBook>(new OVVCardBook(path));
}

std::error_code OVVCardBook::load(const ov::vcard::Progress& progress) {
  return addFile(content_->path, progress);
}

std::error_code OVVCardBook::addFile(const OVString& path, const ov::vcard::Progress& progress) {
  std::string bytes;
  if (const auto error = ov::vcard::readFile(path.str(), bytes)) return error;
  loadCards(*content_, std::move(bytes), path, progress);
  return {};
}

void OVVCardBook::loadWithData(const OVRef<OVData>& data) { loadWithDataProgressBlock(data, {}); }

void OVVCardBook::loadWithDataProgressBlock(const OVRef<OVData>& data,
                                            const std::function<void()>& progressBlock) {
  if (data == nullptr) return;
  ov::vcard::Progress progress;
  if (progressBlock) progress = [&](std::uint64_t, std::uint64_t) { progressBlock(); };
  loadCards(*content_, std::string(data->text()), nullptr, progress);
}

std::vector<OVVCardProblem> OVVCardBook::problems() const {
  std::vector<OVVCardProblem> problems = content_->problems;
  for (const Store::GroupPlace& place : content_->store->groups) {
    for (const Group::MissingMember& member : place.group->missing) {
      problems.push_back({OVVCardSeverity::Warning, member.place.origin, member.place.line,
                          "the member " + member.id.str() + " is not in any file"});
    }
  }
  return problems;
}

OVRef<OVData> OVVCardBook::saveData() {
  const auto out = std::make_shared<std::string>();
  content_->store->write(*out);
  return OVData::dataWithBytesNoCopy(std::as_bytes(std::span(*out)), out);
}

void OVVCardBook::save() {
  if (content_->path.isNull()) return;
  content_->saveError = ov::vcard::writeFile(content_->path, saveData());
}

void OVVCardBook::saveDataBlock(const std::function<void()>& block) {
  save();
  if (block) block();
}

std::error_code OVVCardBook::saveError() const { return content_->saveError; }
