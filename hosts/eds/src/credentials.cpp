// Answers are counted for each source: a dead server asks thousands of times, and one that refuses
// asks for as long as it is answered.

#include "credentials.h"

#include <atomic>

namespace ov::eds {

namespace {

constexpr int kMostAnswersInARow = 10;
/// The service calls an answer refused also when it has not used it yet.
constexpr int kMostRefusals = 3;

std::string userOf(ESource* source) {
  if (e_source_has_extension(source, E_SOURCE_EXTENSION_AUTHENTICATION) == FALSE) return {};
  auto* const authentication = static_cast<ESourceAuthentication*>(
      e_source_get_extension(source, E_SOURCE_EXTENSION_AUTHENTICATION));
  return taken(e_source_authentication_dup_user(authentication));
}

bool same(const OVEDSCredentials& a, const OVEDSCredentials& b) {
  return a.user == b.user && a.password == b.password;
}

}  // namespace

Credentials::Credentials(OVEDSSession::CredentialsCallback ask) : ask_(std::move(ask)) {}

void Credentials::watch(ESourceRegistry* registry) {
  registry_ = registry;
  handler_ = g_signal_connect(registry, "credentials-required", G_CALLBACK(required), this);
}

void Credentials::leave() {
  if (handler_ != 0) g_signal_handler_disconnect(registry_, handler_);
  handler_ = 0;
}

bool Credentials::mayAnswer(const std::string& uid) const {
  if (!ask_) return false;
  const std::lock_guard lock(shared_->mutex);
  const auto at = shared_->asked.find(uid);
  return at == shared_->asked.end() || !at->second.isHopeless;
}

int Credentials::answersGiven(const std::string& uid) const {
  const std::lock_guard lock(shared_->mutex);
  const auto at = shared_->asked.find(uid);
  return at == shared_->asked.end() ? 0 : at->second.answers;
}

void Credentials::forgive(const std::string& uid) {
  const std::lock_guard lock(shared_->mutex);
  Asked& asked = shared_->asked[uid];
  asked.times = 0;
  asked.refusals = 0;
  asked.isHopeless = false;
}

void Credentials::required(ESourceRegistry* /*registry*/, ESource* source,
                           ESourceCredentialsReason reason, const gchar* /*certificate*/,
                           GTlsCertificateFlags /*errors*/, const GError* /*error*/,
                           gpointer self) {
  if (reason != E_SOURCE_CREDENTIALS_REASON_REQUIRED &&
      reason != E_SOURCE_CREDENTIALS_REASON_REJECTED) {
    return;
  }
  static_cast<Credentials*>(self)->ask(source, reason == E_SOURCE_CREDENTIALS_REASON_REJECTED);
}

void Credentials::ask(ESource* source, bool wasRejected) {
  if (!ask_) return;
  {
    const std::lock_guard lock(shared_->mutex);
    Asked& asked = shared_->asked[e_source_get_uid(source)];
    if (asked.isHopeless) return;
    if (++asked.times > kMostAnswersInARow) {
      asked.isHopeless = true;
      return;
    }
  }
  OVEDSCredentialsRequest request;
  request.bookUID = OVString(e_source_get_uid(source));
  request.bookName = OVString(taken(e_source_dup_display_name(source)));
  request.user = OVString(userOf(source));
  request.wasRejected = wasRejected;
  request.answer =
      [shared = shared_, isAnswered = std::make_shared<std::atomic<bool>>(false), wasRejected,
       held = std::shared_ptr<ESource>(anotherRef(source))](const OVEDSCredentials& given) {
        if (!isAnswered->exchange(true)) answer(*shared, held.get(), wasRejected, given);
      };
  ask_(request);
}

void Credentials::answer(Shared& shared, ESource* source, bool wasRejected,
                         const OVEDSCredentials& given) {
  {
    const std::lock_guard lock(shared.mutex);
    Asked& asked = shared.asked[e_source_get_uid(source)];
    if (!same(asked.last, given)) asked.refusals = 0;
    if (wasRejected && same(asked.last, given) && ++asked.refusals >= kMostRefusals) {
      asked.isHopeless = true;
      return;
    }
    asked.last = given;
    ++asked.answers;
  }
  ENamedParameters* const parameters = e_named_parameters_new();
  const std::string user = given.user.isNull() ? userOf(source) : given.user.str();
  e_named_parameters_set(parameters, E_SOURCE_CREDENTIAL_USERNAME, user.c_str());
  e_named_parameters_set(parameters, E_SOURCE_CREDENTIAL_PASSWORD, given.password.str().c_str());
  e_source_invoke_authenticate(source, parameters, nullptr, nullptr, nullptr);
  e_named_parameters_free(parameters);
}

}  // namespace ov::eds
