#pragma once

#include <cstdint>

/// What a value holds. A plain number, part of the stored format: any 32-bit code is kept, and
/// nothing compares it with the class of the datum. 1, 2 and 4 are not assigned. A code without a
/// name is written `static_cast<OVValueType>(14)`.
enum OVValueType : std::int32_t {
  OVValueTypeString = 0,           ///< a text, `OVString`
  OVValueTypeDate = 3,             ///< a date, `OVDate`
  OVValueTypeImage = 5,            ///< the person's thumbnail, `OVImage`
  OVValueTypePhone = 6,            ///< `OVObjectPhone`
  OVValueTypeEmail = 7,            ///< `OVObjectEmail`
  OVValueTypePersonName = 8,       ///< `OVObjectPersonName`
  OVValueTypeAddress = 9,          ///< `OVObjectAddress`
  OVValueTypeTags = 10,            ///< the person's tags
  OVValueTypeNote = 11,            ///< the text of the note
  OVValueTypeMultiple = 12,        ///< no datum: the value is an `OVMultipleValue`
  OVValueTypeInstantMessage = 13,  ///< `OVObjectInstantMessage`
};
