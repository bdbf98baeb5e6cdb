#pragma once

#include <OVAddressBookSDK/object.h>

/// A point in time: seconds since 2001-01-01 00:00:00 UTC.
///
/// The number is kept as it stands, infinities and not-a-number included.
class OV_EXPORT OVDate final : public OVObject {
 public:
  [[nodiscard]] static OVRef<OVDate> dateWithTimeIntervalSinceReferenceDate(double seconds);
  /// Midnight UTC of a day of the proleptic Gregorian calendar; null when there is no such day.
  [[nodiscard]] static OVRef<OVDate> dateWithYearMonthDay(int year, unsigned month, unsigned day);

  [[nodiscard]] double timeIntervalSinceReferenceDate() const { return seconds_; }

  struct Day {
    int year;
    unsigned month;
    unsigned day;
    bool operator==(const Day&) const = default;
  };
  /// The day in UTC; 0-0-0 when the date lies outside the years -32767 to 32767.
  [[nodiscard]] Day day() const;

  [[nodiscard]] const OVClass* classForCoder() const override;
  void encodeWithCoder(OVKeyedArchiver& coder) const override;
  void initWithCoder(OVKeyedUnarchiver& coder) override;

 private:
  friend struct ov::detail::Maker;
  OVDate() = default;

  double seconds_ = 0;
};
