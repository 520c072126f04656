// A clock that is larger than the plain one, and of no use before its constructor has run.
#pragma once

class RtcAbsoluteTime {
 public:
  RtcAbsoluteTime();
  ~RtcAbsoluteTime();
  void GetCurrentDateTime();
  void ToStrDateTime(char* dateFormat, char* timeFormat, char* out);

  static int construidos, destruidos;

 private:
  const char* texto_;
  char cheio_[4096];
};
