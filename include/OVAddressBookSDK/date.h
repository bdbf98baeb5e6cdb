#pragma once

#include <OVAddressBookSDK/object.h>

/// A point in time: seconds since 2001-01-01 00:00:00 UTC.
///
/// Any number is kept, infinities and not-a-number included.
class OV_EXPORT OVDate final : public OVObject {
 public:
  /// Seconds may be fractional or negative.
  [[nodiscard]] static OVRef<OVDate> dateWithTimeIntervalSinceReferenceDate(double seconds);
  /// Midnight UTC of a day of the proleptic Gregorian calendar; null when there is no such day.
  [[nodiscard]] static OVRef<OVDate> dateWithYearMonthDay(int year, unsigned month, unsigned day);

  /// Seconds since 2001-01-01 00:00:00 UTC.
  [[nodiscard]] double timeIntervalSinceReferenceDate() const { return seconds_; }

  /// A day of the proleptic Gregorian calendar.
  struct Day {
    int year;        ///< 0 is the year before 1.
    unsigned month;  ///< 1 to 12.
    unsigned day;    ///< 1 to 31.
    /// Whether both are the same day.
    bool operator==(const Day&) const = default;
  };
  /// The day in UTC; 0-0-0 when the date is outside the years -32767 to 32767.
  [[nodiscard]] Day day() const;

  [[nodiscard]] const OVClass* classForCoder() const override;
  void encodeWithCoder(OVKeyedArchiver& coder) const override;
  void initWithCoder(OVKeyedUnarchiver& coder) override;

 private:
  friend struct ov::detail::Maker;
  OVDate() = default;

  double seconds_ = 0;
};
