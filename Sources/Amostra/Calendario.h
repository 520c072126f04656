// Days and date-times of the proleptic Gregorian calendar, without the clock and the time zone of the
// machine.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace cotepe::loja {

// Day number counted from 1970-01-01. Nothing when the text is not YYYY-MM-DD or there is no such day.
std::optional<int> leDia(std::string_view texto);

// YYYY-MM-DD of a day from the year 0 to 9999.
std::string textoDoDia(int dia);

using DataHora = std::array<char, 19>;

// YYYY-MM-DD HH:MM:SS of the second `segundo` of the day, counted from 0; past 86399 it is in the days after.
DataHora dataHora(int dia, int segundo);

constexpr std::string_view texto(const DataHora& valor) { return {valor.data(), valor.size()}; }

}  // namespace cotepe::loja
