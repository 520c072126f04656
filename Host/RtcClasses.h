/// @file
/// The clock.
#pragma once

#include <ctime>

/// A date and time of the calendar; all zero until it is loaded.
class RtcAbsoluteTime {
 public:
  RtcAbsoluteTime() = default;

  /// Loads the system's current date and time, in local time.
  void GetCurrentDateTime();

  /// Writes the date by its pattern, one blank, the time by its pattern, and a terminator. In the date yyyy,
  /// mm and dd, in the time hh, mm and ss stand for zero-filled numbers of that width; any other character
  /// stands for itself. `out` holds the length of both patterns and 2 bytes.
  void ToStrDateTime(char* dateFormat, char* timeFormat, char* out);

 private:
  std::tm tm_{};  // with the full year, and months from 1
};
