/// @file
/// The clock.
#pragma once

#include <ctime>

/// A calendar date and time; all zeros until it is loaded.
class RtcAbsoluteTime {
 public:
  RtcAbsoluteTime() = default;

  /// Loads the system's current date and time, in local time.
  void GetCurrentDateTime();

  /// Writes the date in its pattern, one blank, the time in its pattern, and a terminator. yyyy, mm and dd in
  /// the date and hh, mm and ss in the time become zero-filled numbers of that width; any other character is
  /// copied. `out` must have room for both patterns plus 2 bytes.
  void ToStrDateTime(char* dateFormat, char* timeFormat, char* out);

 private:
  std::tm tm_{};  // with the full year, and months from 1
};
