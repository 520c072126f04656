#include <clocale>
#include <cstdlib>

#include "Sistema/Numeros.h"

namespace cotepe {

double leDecimalEmC(const char* texto) noexcept {
  static const locale_t localeC = newlocale(LC_ALL_MASK, "C", nullptr);
  return strtod_l(texto, nullptr, localeC);
}

bool horaLocal(std::time_t momento, std::tm& local) noexcept {
  return localtime_r(&momento, &local) != nullptr;
}

}  // namespace cotepe
