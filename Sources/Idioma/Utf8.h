// Texts in UTF-8, and other bytes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace cotepe {

/// Bytes of the well-formed UTF-8 sequence that the text begins with; 0 where it begins with none.
std::size_t sequenciaUtf8(std::string_view texto) noexcept;

/// How many characters a text in UTF-8 has.
std::size_t caracteresUtf8(std::string_view texto) noexcept;

/// The text in UTF-8 whatever it holds: bytes that are not UTF-8 are taken as Latin-1.
std::string emUtf8(std::string_view texto);

}  // namespace cotepe
