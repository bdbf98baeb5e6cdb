#pragma once

#include <system_error>
#include <vector>

#include <OVAddressBookEDS/eds_session.h>

namespace ov::eds {

class Session;

/// The books that the service lists, and how they come and go.
/// @{
[[nodiscard]] std::vector<OVEDSBookInfo> booksOf(const Session& session);
[[nodiscard]] OVString addLocalSource(Session& session, const OVString& name, const Call& call,
                                      std::error_code& error);
[[nodiscard]] OVString addCardDAVSource(Session& session, const OVString& name,
                                        const OVEDSServer& server, const Call& call,
                                        std::error_code& error);
[[nodiscard]] std::error_code removeSource(Session& session, const OVString& uid, const Call& call);
/// @}

}  // namespace ov::eds
