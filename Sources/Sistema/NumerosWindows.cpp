#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <string>

#include "Sistema/Numeros.h"

namespace cotepe {

// The compiler's own library rounds exactly, but accepts only the decimal point of the locale.
double leDecimalEmC(const char* texto) noexcept {
  const std::string ponto = std::localeconv()->decimal_point;
  if (ponto == ".") return __mingw_strtod(texto, nullptr);
  std::string local(texto);
  local.resize(std::min(local.size(), local.find(ponto)));
  const auto onde = local.find('.');
  if (onde != std::string::npos) local.replace(onde, 1, ponto);
  return __mingw_strtod(local.c_str(), nullptr);
}

bool horaLocal(std::time_t momento, std::tm& local) noexcept { return localtime_s(&local, &momento) == 0; }

}  // namespace cotepe
