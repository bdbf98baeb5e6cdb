// Contact lists have a form of their own: members are EMAIL lines with parameters. They are read as
// the group cards that files have, and written by changing the lines of the list.

#include "list_card.h"

#include <unordered_set>

#include "codec/ascii.h"
#include "codec/escapes.h"
#include "codec/line_writer.h"
#include "codec/parameters.h"
#include "mapping/member_lines.h"
#include "mapping/others.h"
#include "mapping/patch.h"

namespace ov::eds {

namespace {

using ov::card::Card;
using ov::card::CardText;
using ov::card::GroupContent;
using ov::card::Line;
using ov::card::LineWriter;
using ov::card::Version;

constexpr std::string_view kMark = "X-EVOLUTION-LIST";
constexpr std::string_view kMemberID = "X-EVOLUTION-DEST-CONTACT-UID";

/// "" for a line that names no card.
std::string_view memberOf(const Line& line) {
  return line.name() == "EMAIL" ? line.parameterValue(kMemberID) : std::string_view();
}

void writeMember(const OVString& id, const FindMember& find, LineWriter& writer) {
  const Member member = find(id).value_or(Member{});
  std::string parameters;
  ov::card::appendParameter(parameters, kMemberID, {id.view()});
  if (!member.name.empty()) {
    ov::card::appendParameter(parameters, "X-EVOLUTION-DEST-NAME", {member.name});
  }
  std::string value = member.name;
  if (!member.email.empty()) {
    ov::card::appendParameter(parameters, "X-EVOLUTION-DEST-EMAIL", {member.email});
    ov::card::appendParameter(parameters, "X-EVOLUTION-DEST-EMAIL-NUM", {"0"});
    value = member.name.empty() ? member.email : "\"" + member.name + "\" <" + member.email + ">";
  }
  ov::card::appendParameter(parameters, "X-EVOLUTION-DEST-HTML-MAIL", {"FALSE"});
  writer.line({{}, "EMAIL", parameters}, ov::card::escapeText(value));
}

void writeName(const OVString& name, LineWriter& writer) {
  const std::string value = ov::card::escapeText(name.view());
  writer.line({{}, "FN", {}}, value);
  writer.line({{}, "N", {}}, ";" + value + ";;;");
  writer.line({{}, "X-EVOLUTION-FILE-AS", {}}, value);
}

bool saysName(const Line& line) {
  return line.name() == "FN" || line.name() == "N" || line.name() == "X-EVOLUTION-FILE-AS";
}

std::string nameIn(const Card& card) {
  for (const Line& line : card.lines) {
    if (line.name() == "FN") return std::string(line.text());
  }
  return {};
}

}  // namespace

std::optional<std::string> groupOfList(std::string_view card) {
  if (card.find(kMark) == std::string_view::npos) return std::nullopt;
  const CardText text{std::string(card)};
  if (text.card() == nullptr) return std::nullopt;
  bool isList = false;
  for (const Line& line : text.lines()) {
    isList |= line.name() == kMark && ov::card::sameWord(ov::card::trim(line.text()), "TRUE");
  }
  if (!isList) return std::nullopt;
  std::string group;
  LineWriter writer(group, Version::V3_0);
  writer.begin();
  std::unordered_set<std::string_view> seen;
  for (const Line& line : text.lines()) {
    const std::string_view member = memberOf(line);
    if (line.name() == kMark) {
      writer.line({{}, "X-ADDRESSBOOKSERVER-KIND", {}}, "group");
    } else if (member.empty()) {
      group += line.source();
    } else if (seen.insert(member).second) {
      writer.line({{}, "X-ADDRESSBOOKSERVER-MEMBER", {}}, ov::card::escapeURI(member));
    }
  }
  writer.end();
  return group;
}

std::string newList(const GroupContent& group, const FindMember& find) {
  std::string card;
  LineWriter writer(card, Version::V3_0);
  writer.begin();
  writer.line({{}, "UID", {}}, ov::card::escapeText(group.id));
  writeName(group.name, writer);
  writer.line({{}, kMark, {}}, "TRUE");
  writer.line({{}, "X-EVOLUTION-LIST-SHOW-ADDRESSES", {}}, "FALSE");
  for (const OVString& member : group.members) writeMember(member, find, writer);
  writer.end();
  return card;
}

std::string changedList(std::string_view card, const GroupContent& group, const FindMember& find) {
  const CardText text{std::string(card)};
  if (text.card() == nullptr) return newList(group, find);
  ov::card::MemberIDs missing;
  for (const OVString& member : group.members) missing.insert(member.str());
  const auto& lines = text.lines();
  std::vector<std::string_view> named;
  for (const Line& line : lines) {
    if (const auto member = memberOf(line); !member.empty()) named.push_back(member);
  }
  const std::vector<bool> stays = ov::card::linesThatStay(named, missing);
  const bool isRenamed = group.name != nameIn(*text.card());
  ov::card::Patch patch(*text.card());
  std::size_t behindMembers = patch.end();
  std::size_t nameAt = patch.end();
  std::size_t member = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (!memberOf(lines[i]).empty()) {
      behindMembers = i + 1;
      if (!stays[member++]) patch.drop(i);
    } else if (isRenamed && saysName(lines[i])) {
      nameAt = std::min(nameAt, i);
      patch.drop(i);
    }
  }
  std::string added;
  LineWriter writer(added, text.card()->version, text.card()->lineEnd);
  for (const OVString& id : group.members) {
    const auto at = missing.find(id.view());
    if (at == missing.end()) continue;
    missing.erase(at);
    writeMember(id, find, writer);
  }
  if (!added.empty()) patch.insert(behindMembers, added);
  if (isRenamed) {
    added.clear();
    writeName(group.name, writer);
    patch.insert(nameAt, added);
  }
  std::string out;
  patch.write(out);
  return out;
}

}  // namespace ov::eds
