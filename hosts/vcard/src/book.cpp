#include <OVAddressBookVCard/vcard_book.h>

#include <filesystem>

#include <OVAddressBookVCard/vcard_export.h>

#include "book_content.h"
#include "book_text.h"
#include "card_id.h"
#include "file_bytes.h"
#include "loader.h"

using ov::vcard::BookContent;
using ov::vcard::GroupRecord;

namespace {

OVString absolutePath(const OVString& path) {
  std::error_code error;
  const std::filesystem::path absolute = std::filesystem::absolute(path.str(), error);
  return error ? path : OVString(absolute.lexically_normal().string());
}

}  // namespace

OVVCardBook::OVVCardBook(const OVString& path) : content_(std::make_shared<BookContent>()) {
  content_->path = path.isNull() ? path : absolutePath(path);
  content_->id = path.isNull() ? ov::vcard::randomID() : content_->path;
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
  ov::vcard::loadCards(*content_, std::move(bytes), path, progress);
  return {};
}

void OVVCardBook::loadWithData(const OVRef<OVData>& data) { loadWithDataProgressBlock(data, {}); }

void OVVCardBook::loadWithDataProgressBlock(const OVRef<OVData>& data,
                                            const std::function<void()>& progressBlock) {
  if (data == nullptr) return;
  ov::vcard::Progress progress;
  if (progressBlock) progress = [&](std::uint64_t, std::uint64_t) { progressBlock(); };
  ov::vcard::loadCards(*content_, std::string(data->text()), nullptr, progress);
}

std::vector<OVVCardProblem> OVVCardBook::problems() const {
  std::vector<OVVCardProblem> problems = content_->problems;
  for (const OVRef<OVVCardGroup>& group : content_->groups) {
    const GroupRecord& record = BookContent::recordOf(*group);
    for (const GroupRecord::MissingMember& member : record.missing) {
      problems.push_back({OVVCardSeverity::Warning, member.place.file, member.place.line,
                          "the member " + member.id.str() + " is in no file"});
    }
  }
  return problems;
}

OVRef<OVData> OVVCardBook::saveData() { return ov::vcard::cardsOf(*this); }

void OVVCardBook::save() {
  if (content_->path.isNull()) return;
  content_->saveError = ov::vcard::writeFile(content_->path, saveData());
}

void OVVCardBook::saveDataBlock(const std::function<void()>& block) {
  save();
  if (block) block();
}

std::error_code OVVCardBook::saveError() const { return content_->saveError; }
