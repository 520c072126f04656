// Pieces of a page: texts that cannot be taken for markup, and numbers as they are written in Brazil.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace cotepe::pagina {

/// Appends bytes of a report, or any text, as text: markup characters as references, bytes that are not UTF-8
/// as Latin-1, control characters as Unicode's pictures of them, and what would change the direction of the
/// text or is not a character as U+FFFD.
void poeTexto(std::string& html, std::string_view bytes);

/// The same as a new text.
std::string texto(std::string_view bytes);

/// Appends cents as 1.234,56.
void poeReais(std::string& html, std::int64_t centavos);
std::string reaisDe(std::int64_t centavos);

/// Appends 1.234.
void poeNumero(std::string& html, std::int64_t numero);

/// Cells of a table: an amount in cents, which the script sorts by, and a number.
std::string celulaDeReais(std::int64_t centavos);
std::string celulaDeNumero(std::int64_t numero);

/// Thousandths as 1,25 without zeros at the end.
std::string milesimosDe(std::int64_t milesimos);

/// A share in hundredths of a percent as 1,25 %.
std::string percentual(std::int64_t centesimos);

/// AAAAMMDD as 31/01/2024, AAAAMM as 01/2024; anything else unchanged.
std::string dataDe(std::string_view digitos);

/// AAAAMMDD as 2024-01-31.
std::string dataIso(std::string_view digitos);

}  // namespace cotepe::pagina
