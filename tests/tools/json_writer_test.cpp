#include "output/json_writer.h"

#include <functional>
#include <sstream>

#include <gtest/gtest.h>

using ovbook::JsonWriter;

namespace {

std::string written(const std::function<void(JsonWriter&)>& write) {
  std::ostringstream out;
  JsonWriter json(out);
  write(json);
  return out.str();
}

}  // namespace

TEST(JsonWriter, ObjectsHaveKeysAndCommas) {
  EXPECT_EQ(written([](JsonWriter& json) {
              json.beginObject();
              json.key("a\"");
              json.literal("1");
              json.key("b");
              json.beginArray();
              json.text("x\n");
              json.literal("null");
              json.end();
              json.end();
            }),
            "{\n \"a\\\"\": 1,\n \"b\": [\n  \"x\\n\",\n  null\n ]\n}\n");
}

TEST(JsonWriter, EmptyContainersAreOnOneLine) {
  EXPECT_EQ(written([](JsonWriter& json) {
              json.beginArray();
              json.beginObject();
              json.end();
              json.beginArray();
              json.end();
              json.end();
            }),
            "[\n {},\n []\n]\n");
}
