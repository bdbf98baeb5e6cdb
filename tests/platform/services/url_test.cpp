#include "platform/services/url.h"

#include <string>
#include <string_view>

namespace {

using std::string_view_literals::operator""sv;

class ValidUrl : public testing::TestWithParam<std::string_view> {};

TEST_P(ValidUrl, IsAccepted) { EXPECT_TRUE(ov::isValidUrl(GetParam())); }

INSTANTIATE_TEST_SUITE_P(Schemes, ValidUrl,
                         testing::Values("tel:", "facetime://", "imessage://", "tel:15550109999",
                                         "facetime://49301234567", "imessage://1", "mailto:a@b",
                                         "mailto:@", "MAILTO:a", "x-apple.y+z:", "a1:b"));

INSTANTIATE_TEST_SUITE_P(Authorities, ValidUrl,
                         testing::Values("http://example.org", "http://example.org:8080/",
                                         "http://example.org:", "http://u:p@example.org/",
                                         "http://u%40@h", "http://[::1]/", "http://[::1]:80",
                                         "http://[v1.a:b]/", "http://[V1.a:b]/", "http://[v1f.a]",
                                         "http://[::ffff:1.2.3.4]", "http://u@[::1]",
                                         "file:///etc/passwd", "http://%C3%A4.example"));

INSTANTIATE_TEST_SUITE_P(PathsQueriesFragments, ValidUrl,
                         testing::Values("a:/b//c", "a:b/c:d@e", "a:?", "a:#", "a:?b?c/d",
                                         "a:b#c?d/e", "a:?#", "a:%00", "a:%fF", "a:$(touch)",
                                         "a:-._~!$&'()*+,;=", "urn:isbn:0451450523", "mailto:a@b@c",
                                         "mailto:a@b?subject=x"));

class InvalidUrl : public testing::TestWithParam<std::string_view> {};

TEST_P(InvalidUrl, IsRefused) { EXPECT_FALSE(ov::isValidUrl(GetParam())); }

INSTANTIATE_TEST_SUITE_P(Schemes, InvalidUrl,
                         testing::Values("", ":", "tel", "//host", "/path", "1a:", "-a:", "a_b:",
                                         " tel:", "t el:", "\xC3\xA9:", "a%41:", "a/b:c", "#a:"));

INSTANTIATE_TEST_SUITE_P(Characters, InvalidUrl,
                         testing::Values("mailto:a b@c", "mailto:a@b ", "tel:1\n", "tel:1\t2",
                                         "tel:\x7F", "tel:1\0"sv, "mailto:\xC3\xA4@b", "a:<", "a:>",
                                         "a:\"", "a:\\", "a:^", "a:`", "a:{", "a:|", "a:}"));

INSTANTIATE_TEST_SUITE_P(Escapes, InvalidUrl,
                         testing::Values("a:%", "a:%4", "a:%4g", "a:%g4", "a:%%41", "a:?%", "a:#%1",
                                         "a://%", "a://u%@h"));

INSTANTIATE_TEST_SUITE_P(Brackets, InvalidUrl,
                         testing::Values("a:[b]", "a:b[", "a:?[", "a:#]", "a://h[::1]", "a://[::1",
                                         "a://::1]", "a://[]", "a://[::1]x", "a://[1.2.3.4]",
                                         "a://[::1%25eth0]", "a://[v.a]", "a://[v1.]", "a://[vg.a]",
                                         "a://[v1]", "a://[[::1]]", "a://u[@h"));

INSTANTIATE_TEST_SUITE_P(Structure, InvalidUrl,
                         testing::Values("a:b#c#d", "a://h:x", "a://h:1:2", "a://u@v@h",
                                         "a://[::1]:x"));

TEST(Url, EveryCharacterAllowedInAPathIsKept) {
  const std::string_view allowed =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._~!$&'()*+,;=:@/?#";
  for (int c = 0; c < 256; ++c) {
    const char character = static_cast<char>(c);
    EXPECT_EQ(ov::isValidUrl(std::string("a:") + character),
              allowed.find(character) != std::string_view::npos)
        << c;
  }
}

}  // namespace
