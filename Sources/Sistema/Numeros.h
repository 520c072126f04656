// What the system's own reading of numbers and times needs to be the same everywhere.
#pragma once

#include <ctime>

namespace cotepe {

/// The number at the start of a text, as strtod reads it in the C locale, whatever the process's locale.
double leDecimalEmC(const char* texto) noexcept;

/// That time in local time; false when the system cannot convert it.
bool horaLocal(std::time_t momento, std::tm& local) noexcept;

}  // namespace cotepe
