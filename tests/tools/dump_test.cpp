#include <OVAddressBookSDK/person_name.h>

#include "ovbook_test.h"
#include "support/values.h"

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

class Dump : public OvbookTest {
 protected:
  /// Has Python write the archive of that name.
  std::string foreign(const std::string& name) {
    EXPECT_EQ(
        runProgram(
            {"python3", std::string(TESTS_FOLDER) + "/foreign_archives.py", name, path(name)}, {}),
        success());
    return path(name);
  }

  std::string text(const std::string& file) { return outputOf({"dump", file}); }

  /// Dumps as JSON, has Python read that, and gives what expressions over `root` and `rest` come
  /// to.
  std::string json(const std::string& file, const std::vector<std::string>& expressions) {
    std::string program =
        "import json, sys\nall = json.load(sys.stdin)\n"
        "root, rest = all['root'], all.get('rest', {})\n";
    for (const std::string& expression : expressions) program += "print((" + expression + "))\n";
    const std::string json = outputOf({"dump", "--json", file});
    const Outcome outcome = runProgram({"python3", "-c", program}, {.input = json});
    EXPECT_EQ(outcome.err, "");
    return outcome.out;
  }

 private:
  std::string outputOf(const Arguments& arguments) {
    const Outcome outcome = ovbook(arguments);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    return outcome.out;
  }
};

}  // namespace

TEST_F(Dump, ShowsFieldsOfEveryKind) {
  EXPECT_EQ(text(foreign("kinds")),
            "Kinds\n"
            "  whole: -3\n"
            "  large: 9223372036854775813\n"
            "  real: 0.5\n"
            "  nan: nan\n"
            "  infinite: -inf\n"
            "  truth: true\n"
            "  text: \"a\\u001b\\u009b\\\"\\\\\\u202e\"\n"
            "  data: data, 18 bytes: 00ff00ff00ff00ff00ff00ff00ff00ff...\n"
            "  date: 2009-08-22T18:15:00Z\n"
            "  none: null\n"
            "  array: array, 3 items\n"
            "    - 1\n"
            "    - array, 1 item\n"
            "      - \"leaf\"\n"
            "    - dictionary, 1 entry\n"
            "      \"key\": \"value\"\n"
            "  url: NSURL\n"
            "    NS.base: null\n"
            "    NS.relative: \"https://example.org/\"\n");
}

TEST_F(Dump, JsonHasFieldsOfEveryKind) {
  EXPECT_EQ(json(foreign("kinds"),
                 {"root['class'], root['classes']", "list(root['fields'].values())[:6]",
                  "ascii(root['fields']['text'])", "root['fields']['data']",
                  "root['fields']['date']", "root['fields']['none']", "root['fields']['array']"}),
            "('Kinds', ['Kinds', 'Root', 'NSObject'])\n"
            "[-3, 9223372036854775813, 0.5, 'nan', '-inf', True]\n"
            "'a\\x1b\\x9b\"\\\\\\u202e'\n"
            "{'data': 'AP8A/wD/AP8A/wD/AP8A/wD/'}\n"
            "{'date': '2009-08-22T18:15:00Z', 'seconds': 272657700}\n"
            "None\n"
            "{'items': [1, {'items': ['leaf']}, {'entries': {'key': 'value'}}]}\n");
}

TEST_F(Dump, JsonHoldsNoControlCharacters) {
  const Outcome outcome = ovbook({"dump", "--json", foreign("kinds")});
  EXPECT_EQ(runProgram({"python3", "-m", "json.tool"}, {.input = outcome.out}).status, 0);
  for (const char byte : outcome.out) EXPECT_TRUE(byte == '\n' || (byte >= ' ' && byte < 0x7F));
}

TEST_F(Dump, TextsThatAreObjectsTellTheirClass) {
  EXPECT_EQ(text(foreign("texts")),
            "NSArray, 2 items\n"
            "  - \"plain\"\n"
            "  - NSMutableString\n"
            "    NS.string: \"mutable\"\n");
}

TEST_F(Dump, SharedObjectsAreShownOnce) {
  const std::string file = foreign("shared");
  EXPECT_EQ(text(file),
            "NSArray, 3 items\n"
            "  - Label #1\n"
            "    name: \"home\"\n"
            "  - #1\n"
            "  - NSSet\n"
            "    NS.objects: array, 1 item\n"
            "      - #1\n");
  EXPECT_EQ(json(file, {"root['items'][0]['id'], root['items'][1], rest"}),
            "(1, {'ref': 1}, {})\n");
}

TEST_F(Dump, RingsEnd) {
  const std::string file = foreign("ring");
  EXPECT_EQ(text(file), "Node #1\n  next: Node\n    next: #1\n");
  EXPECT_EQ(json(file, {"root['fields']['next']['fields']"}), "{'next': {'ref': 1}}\n");
}

TEST_F(Dump, LongChainsAreShownInPieces) {
  const std::string file = foreign("chain");
  const std::string dump = text(file);
  EXPECT_THAT(dump, StartsWith("Node\n  next: Node\n    next: Node\n"));
  EXPECT_THAT(dump, HasSubstr(" #1\n\nNode #1\n  next: Node\n"));
  EXPECT_THAT(dump, EndsWith("end: true\n"));
  EXPECT_EQ(json(file, {"len(rest) > 400, sorted(rest)[0], rest['1']['id']"}), "(True, '1', 1)\n");
}

TEST_F(Dump, DeepContainersAreShownInPieces) {
  const std::string file = foreign("nest");
  EXPECT_THAT(text(file), HasSubstr(" #1\n\n"));
  EXPECT_THAT(text(file), EndsWith("\"bottom\"\n"));
  EXPECT_EQ(json(file, {"len(rest)"}), "10\n");
}

TEST_F(Dump, OtherEntriesReplaceAMissingRoot) {
  EXPECT_EQ(text(foreign("entries")),
            "NSMutableDictionary, 2 entries\n  \"one\": Node #1\n  \"two\": #1\n");
}

TEST_F(Dump, NothingIsNull) {
  EXPECT_EQ(text(foreign("nothing")), "null\n");
  EXPECT_EQ(json(foreign("nothing"), {"root"}), "None\n");
}

TEST_F(Dump, ShowsABookAsItIsStored) {
  const auto person = OVPersonGeneral::initWithID("jd");
  const auto label = labelOf("Name");
  const auto name = OVObjectPersonName::initWithFirstMiddleLast("Jane", nullptr, nullptr);
  person->setValueByPropertyName(valueOf(OVValueTypePersonName, name, label), OVProPertyName);
  person->setValueByPropertyName(valueOf(OVValueTypeString, OVString("Inc"), label),
                                 OVProPertyCompany);
  const auto book = OVAddressBookGeneral::init();
  book->addPerson(person);
  const std::string file = bookFile(*book);
  EXPECT_EQ(text(file),
            "OVAddressBookGeneral\n"
            "  personDic: NSMutableDictionary, 1 entry\n"
            "    \"jd\": OVPersonGeneral\n"
            "      Name: OVMutableSingleValue\n"
            "        type: 8\n"
            "        label: OVLabel #1\n"
            "          name: \"Name\"\n"
            "          displayName: \"Name\"\n"
            "        value: OVObjectPersonName\n"
            "          first: \"Jane\"\n"
            "      Company: OVMutableSingleValue\n"
            "        type: 0\n"
            "        label: #1\n"
            "        value: \"Inc\"\n"
            "      ID: \"jd\"\n"
            "  groupDic: NSMutableDictionary, 0 entries\n");
  EXPECT_EQ(json(file, {"root['fields']['personDic']['entries']['jd']['fields']['ID']"}), "jd\n");
}

TEST_F(Dump, WhatIsNoArchiveIsAFailure) {
  const std::string list = foreign("property_list");
  EXPECT_EQ(ovbook({"dump", list}),
            failure(list + ": a property list that is not a keyed archive"));
  EXPECT_EQ(ovbook({"dump", "--json", list}),
            failure(list + ": a property list that is not a keyed archive"));
  const std::string xml = foreign("xml");
  EXPECT_EQ(
      ovbook({"dump", xml}),
      failure(xml + ": an XML property list; only binary ones can be read: convert it first"));
  EXPECT_EQ(ovbook({"dump", file("empty", "")}), failure(path("empty") + ": no data"));
}

TEST_F(Dump, ReadsAPipe) {
  const std::string archive = readFile(foreign("nothing"));
  EXPECT_EQ(ovbookIn({.input = archive}, {"dump", "/dev/stdin"}), success("null\n"));
}

TEST_F(Dump, WhatNeverEndsIsAFailure) {
  EXPECT_EQ(ovbook({"dump", "/dev/zero"}),
            failure("/dev/zero: is not a regular file and is larger than 512 MiB"));
}
