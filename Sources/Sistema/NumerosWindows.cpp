#include <cstdlib>

#include "Sistema/Numeros.h"

namespace cotepe {

// That of the compiler's own library: exactly rounded, and it knows no locale.
double leDecimalEmC(const char* texto) noexcept { return __mingw_strtod(texto, nullptr); }

bool horaLocal(std::time_t momento, std::tm& local) noexcept { return localtime_s(&local, &momento) == 0; }

}  // namespace cotepe
