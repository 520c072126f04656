// The application's clock. Its members and its constructor are its own affair: the generator makes one, and
// calls these two.
#pragma once

class RtcAbsoluteTime {
 public:
  void GetCurrentDateTime();
  void ToStrDateTime(char* dateFormat, char* timeFormat, char* out);

 private:
  int ano_ = 0, mes_ = 0, dia_ = 0, hora_ = 0, minuto_ = 0, segundo_ = 0;
};
