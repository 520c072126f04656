// Pieces of JSON that are written one by one.
#pragma once

#include <string>
#include <string_view>

namespace cotepe {

/// The text as a JSON string, quotes included; valid whatever the text holds, see emUtf8.
std::string textoJson(std::string_view texto);

/// A file name as the path of a URI reference: all but letters, digits and -._~/ percent-encoded.
std::string uriDoArquivo(std::string_view nome);

}  // namespace cotepe
