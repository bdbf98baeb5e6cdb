#pragma once

#include <array>
#include <string_view>

namespace ov::detail {

struct LayoutRow {
  /// Lines apart by slashes, the fields of a line joined by plus signs.
  std::string_view lines;
  std::string_view codes;
};

/// All layouts of postal addresses. The first one serves every code that is in none.
inline constexpr std::array<LayoutRow, 37> kLayoutTable{{
    {"Street / City + State + ZIP / CountryOrArea", "us pr"},
    {"CountryOrArea / Province + City / Street / PostalCode", "cn"},
    {"Street / City / CountryOrArea",
     "al af ao ag bb bj bo bw bi kp tg gm cg co gd gy dj gh zw cm ly ml nk nr sl sc st lc vc sb tz "
     "to tt ug td cf"},
    {"Street / PostalCode + City / CountryOrArea",
     "dz ae az et ee ad at bg be is pl dk de fi cr ge cu ht nl gn ga qa la lt lr li lu ro mg md ma "
     "mc ne no pt se ch sn cy sk si tj tn tr tm gt uy gr hu sy am ye ir il zm cl fr"},
    {"Street / City + PostalCode / CountryOrArea",
     "pk py bh bm bf kh lv ls lb mv mw mn bd pe mm np sa bn sg jm"},
    {"Street / PostalCode + City / Province / CountryOrArea", "ar pa by kw mz es it id vn"},
    {"Street / PostalCode / City / Province / CountryOrArea", "om"},
    {"Street / Adjacentarea / Province / CountryOrArea", "eg"},
    {"Street / TownCity + county + Postcode / CountryOrArea", "ie gb"},
    {"Street / Suburb + State + PostalCode / CountryOrArea", "au"},
    {"Street / City + PostalCode + Province / CountryOrArea", "pg sm"},
    {"Street / City + Island / CountryOrArea", "bs"},
    {"Street / ZIP + City + Province / CountryOrArea", "br"},
    {"Street / City / Province / CountryOrArea", "bz"},
    {"Street / PostalDistricts / PostalCode + City / CountryOrArea", "do"},
    {"Street / City / Region / CountryOrArea / PostalCode", "ru"},
    {"Street / PostalCode / City / CountryOrArea", "ec mu sd iq"},
    {"Street / PostalCode + City + Island / CountryOrArea", "pf"},
    {"Street + Region / PostalCode + City / CountryOrArea", "ph nz"},
    {"Street / PostalDistricts / City / CountryOrArea", "fj sr"},
    {"Street / City + PostalDistricts / Province / CountryOrArea / PostalCode", "kz"},
    {"PostalCode / CountryOrArea / Province + City / Street", "kr"},
    {"Street / PostalCode + City + Department / CountryOrArea", "hn ni sv"},
    {"PostalCode + City / Street / CountryOrArea", "kg"},
    {"Street / City + Province + PostalCode / CountryOrArea", "ca"},
    {"Street / City / PostalCode / CountryOrArea", "ke mt lk sz"},
    {"Street / PostalCode + City + State / CountryOrArea", "my mx ve"},
    {"Street / City / Province / PostalCode / CountryOrArea", "za"},
    {"Street / City + PostalCode / State / CountryOrArea", "ng in"},
    {"PostalCode / Prefecture + CountryCity / FurtherDivisions / CountryOrArea", "jp"},
    {"Street / City + Region + PostalCode / CountryOrArea", "so"},
    {"CountryOrArea / ZIP + county + City / Street", "tw"},
    {"Street / Region / Province + PostalCode / CountryOrArea", "th"},
    {"Street / City + Province + PostalDistricts / PostalCode / CountryOrArea", "ua"},
    {"Street / City / CountryOrArea / PostalCode", "uz"},
    {"Region / PostalDistricts / Street / City + PostalCode / CountryOrArea", "jo"},
    {"CountryOrArea / City / Street", "mo hk"},
}};

}  // namespace ov::detail
