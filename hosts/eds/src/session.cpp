#include <OVAddressBookEDS/eds_session.h>

#include <OVAddressBookEDS/eds_book.h>

#include "book_content.h"
#include "group_objects.h"
#include "memory/general_group.h"
#include "session_core.h"
#include "sources.h"

using ov::eds::Session;

OVEDSSession::OVEDSSession(std::shared_ptr<Session> session) : session_(std::move(session)) {}

OVEDSSession::~OVEDSSession() = default;

OVRef<OVEDSSession> OVEDSSession::open(std::error_code& error, CredentialsCallback credentials,
                                       const ov::eds::Call& call) {
  ov::card::GeneralGroup::registerClass();
  auto session = Session::open(std::move(credentials), call, error);
  return error ? nullptr : OVRef<OVEDSSession>(new OVEDSSession(std::move(session)));
}

OVEDSSessionState OVEDSSession::state() const {
  return session_->isGone() ? OVEDSSessionState::Gone : OVEDSSessionState::Connected;
}

std::vector<OVEDSBookInfo> OVEDSSession::books() const { return ov::eds::booksOf(*session_); }

OVString OVEDSSession::addLocalBook(const OVString& name, std::error_code& error,
                                    const ov::eds::Call& call) {
  return ov::eds::addLocalSource(*session_, name, call, error);
}

OVString OVEDSSession::addCardDAVBook(const OVString& name, const OVEDSServer& server,
                                      std::error_code& error, const ov::eds::Call& call) {
  return ov::eds::addCardDAVSource(*session_, name, server, call, error);
}

std::error_code OVEDSSession::removeBook(const OVString& uid, const ov::eds::Call& call) {
  return ov::eds::removeSource(*session_, uid, call);
}

OVRef<OVEDSBook> OVEDSSession::openBook(const OVString& uid, std::error_code& error,
                                        const ov::eds::Call& call) {
  auto content = std::make_shared<ov::eds::BookContent>();
  content->connection = ov::eds::Connection::open(session_, uid.str(), call, error);
  if (error) return nullptr;
  content->session = session_;
  content->store = std::make_shared<ov::card::Store>(&ov::eds::GroupObjects::make);
  content->store->id = uid;
  return ov::eds::BookMaker::make(std::move(content));
}
