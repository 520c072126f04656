// Bytes of a report and values of a database as a message shows them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace cotepe {

/// The bytes as they can be shown: printable ASCII unchanged, any other byte as '?'.
std::string mostravel(std::string_view bytes);

/// The same between quotation marks, at most 60 bytes of it; "..." marks what is cut off.
std::string entreAspas(std::string_view bytes);

/// A value of a database between quotation marks: control characters, quotation marks and bytes that are not
/// UTF-8 escaped, at most 40 bytes of it; "..." marks what is cut off, and its length follows.
std::string citado(std::string_view valor);

/// Such a value without quotation marks, for keys.
std::string legivel(std::string_view valor);

/// "E14, E15 and E21"; empty for none.
std::string enumera(const std::vector<std::string>& itens);

}  // namespace cotepe
