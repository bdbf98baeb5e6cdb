// A fixed vocabulary: its spelling, its order and the second rows of "lc" and "vc", which no
// look-up finds, are kept. Texts and look-up table are made at compile time.

#include "address/country_names.h"

#include <array>
#include <cstddef>

#include "address/code_map.h"

namespace ov::detail {
namespace {

struct Row {
  const TextConstant* code;
  std::string_view codeText;
  const TextConstant* name;
};

template <Literal Code, Literal Name>
constexpr Row row() {
  return {&kConstant<Code>, std::string_view(Code.characters, sizeof(Code.characters) - 1),
          &kConstant<Name>};
}

// clang-format off
constexpr std::array kRows{
    row<"ao", "Angola">(),
    row<"af", "Afghanistan">(),
    row<"al", "Albania">(),
    row<"dz", "Algeria">(),
    row<"ad", "Andorra">(),
    row<"ai", "Anguilla">(),
    row<"ag", "Antigua and Barbuda">(),
    row<"ar", "Argentina">(),
    row<"am", "Armenia">(),
    row<"au", "Australia">(),
    row<"at", "Austria">(),
    row<"az", "Azerbaijan">(),
    row<"bs", "Bahamas">(),
    row<"bh", "Bahrain">(),
    row<"bd", "Bangladesh">(),
    row<"bb", "Barbados">(),
    row<"by", "Belarus">(),
    row<"be", "Belgium">(),
    row<"bz", "Belize">(),
    row<"bj", "Benin">(),
    row<"bm", "Bermuda Is.">(),
    row<"bo", "Bolivia">(),
    row<"bw", "Botswana">(),
    row<"br", "Brazil">(),
    row<"bn", "Brunei">(),
    row<"bg", "Bulgaria">(),
    row<"bf", "Burkina-faso">(),
    row<"mm", "Burma">(),
    row<"bi", "Burundi">(),
    row<"cm", "Cameroon">(),
    row<"ca", "Canada">(),
    row<"cf", "Central African Republic">(),
    row<"td", "Chad">(),
    row<"cl", "Chile">(),
    row<"cn", "China">(),
    row<"co", "Colombia">(),
    row<"cg", "Congo">(),
    row<"ck", "Cook Is.">(),
    row<"cr", "Costa Rica">(),
    row<"cu", "Cuba">(),
    row<"cy", "Cyprus">(),
    row<"cz", "Czech Republic">(),
    row<"dk", "Denmark">(),
    row<"dj", "Djibouti">(),
    row<"do", "Dominica Rep.">(),
    row<"ec", "Ecuador">(),
    row<"eg", "Egypt">(),
    row<"sv", "EI Salvador">(),
    row<"ee", "Estonia">(),
    row<"et", "Ethiopia">(),
    row<"fj", "Fiji">(),
    row<"fi", "Finland">(),
    row<"fr", "France">(),
    row<"gf", "French Guiana">(),
    row<"ga", "Gabon">(),
    row<"gm", "Gambia">(),
    row<"ge", "Georgia">(),
    row<"de", "Germany">(),
    row<"gh", "Ghana">(),
    row<"gi", "Gibraltar">(),
    row<"gr", "Greece">(),
    row<"gd", "Grenada">(),
    row<"gu", "Guam">(),
    row<"gt", "Guatemala">(),
    row<"gn", "Guinea">(),
    row<"gy", "Guyana">(),
    row<"ht", "Haiti">(),
    row<"hn", "Honduras">(),
    row<"hk", "Hongkong">(),
    row<"hu", "Hungary">(),
    row<"is", "Iceland">(),
    row<"in", "India">(),
    row<"id", "Indonesia">(),
    row<"ir", "Iran">(),
    row<"iq", "Iraq">(),
    row<"ie", "Ireland">(),
    row<"il", "Israel">(),
    row<"it", "Italy">(),
    row<"jm", "Jamaica">(),
    row<"jp", "Japan">(),
    row<"jo", "Jordan">(),
    row<"kh", "Kampuchea (Cambodia )">(),
    row<"kz", "Kazakstan">(),
    row<"ke", "Kenya">(),
    row<"kr", "Korea">(),
    row<"kw", "Kuwait">(),
    row<"kg", "Kyrgyzstan">(),
    row<"la", "Laos">(),
    row<"lv", "Latvia">(),
    row<"lb", "Lebanon">(),
    row<"ls", "Lesotho">(),
    row<"lr", "Liberia">(),
    row<"ly", "Libya">(),
    row<"li", "Liechtenstein">(),
    row<"lt", "Lithuania">(),
    row<"lu", "Luxembourg">(),
    row<"mo", "Macao">(),
    row<"mg", "Madagascar">(),
    row<"mw", "Malawi">(),
    row<"my", "Malaysia">(),
    row<"mv", "Maldives">(),
    row<"ml", "Mali">(),
    row<"mt", "Malta">(),
    row<"mu", "Mauritius">(),
    row<"mx", "Mexico">(),
    row<"md", "Moldova, Republic of">(),
    row<"mc", "Monaco">(),
    row<"mn", "Mongolia">(),
    row<"ms", "Montserrat Is">(),
    row<"ma", "Morocco">(),
    row<"mz", "Mozambique">(),
    row<"na", "Namibia">(),
    row<"nr", "Nauru">(),
    row<"np", "Nepal">(),
    row<"nl", "Netherlands">(),
    row<"nz", "New Zealand">(),
    row<"ni", "Nicaragua">(),
    row<"ne", "Niger">(),
    row<"ng", "Nigeria">(),
    row<"kp", "North Korea">(),
    row<"no", "Norway">(),
    row<"om", "Oman">(),
    row<"pk", "Pakistan">(),
    row<"pa", "Panama">(),
    row<"pg", "Papua New Cuinea">(),
    row<"py", "Paraguay">(),
    row<"pe", "Peru">(),
    row<"ph", "Philippines">(),
    row<"pl", "Poland">(),
    row<"pf", "French Polynesia">(),
    row<"pt", "Portugal">(),
    row<"pr", "Puerto Rico">(),
    row<"qa", "Qatar">(),
    row<"ro", "Romania">(),
    row<"ru", "Russia">(),
    row<"lc", "Saint Lueia">(),
    row<"vc", "Saint Vincent">(),
    row<"sm", "San Marino">(),
    row<"st", "Sao Tome and Principe">(),
    row<"sa", "Saudi Arabia">(),
    row<"sn", "Senegal">(),
    row<"sc", "Seychelles">(),
    row<"sl", "Sierra Leone">(),
    row<"sg", "Singapore">(),
    row<"sk", "Slovakia">(),
    row<"si", "Slovenia">(),
    row<"sb", "Solomon Is">(),
    row<"so", "Somali">(),
    row<"za", "South Africa">(),
    row<"es", "Spain">(),
    row<"lk", "Sri Lanka">(),
    row<"lc", "St.Lucia">(),
    row<"vc", "St.Vincent">(),
    row<"sd", "Sudan">(),
    row<"sr", "Suriname">(),
    row<"sz", "Swaziland">(),
    row<"se", "Sweden">(),
    row<"ch", "Switzerland">(),
    row<"sy", "Syria">(),
    row<"tw", "Taiwan">(),
    row<"tj", "Tajikstan">(),
    row<"tz", "Tanzania">(),
    row<"th", "Thailand">(),
    row<"tg", "Togo">(),
    row<"to", "Tonga">(),
    row<"tt", "Trinidad and Tobago">(),
    row<"tn", "Tunisia">(),
    row<"tr", "Turkey">(),
    row<"tm", "Turkmenistan">(),
    row<"ug", "Uganda">(),
    row<"ua", "Ukraine">(),
    row<"ae", "United Arab Emirates">(),
    row<"gb", "United Kingdom">(),
    row<"us", "United States">(),
    row<"uy", "Uruguay">(),
    row<"uz", "Uzbekistan">(),
    row<"ve", "Venezuela">(),
    row<"vn", "Vietnam">(),
    row<"ye", "Yemen">(),
    row<"yu", "Yugoslavia">(),
    row<"zw", "Zimbabwe">(),
    row<"zr", "Zaire">(),
    row<"zm", "Zambia">(),
};
// clang-format on
static_assert(kRows.size() == 183);

constexpr CodeMap kRowOfCode = []() {
  CodeMap map;
  for (std::size_t i = 0; i < kRows.size(); ++i) map.add(kRows[i].codeText, i);
  return map;
}();

}  // namespace

CountryName countryNameOf(std::string_view lowerCaseCode) {
  const auto row = kRowOfCode.find(lowerCaseCode);
  if (!row) return {};
  return {OVString(*kRows[*row].code), OVString(*kRows[*row].name)};
}

}  // namespace ov::detail
