// Texts as Windows takes them: UTF-16, and long paths in a form without its limit. For the Windows halves
// alone.
#pragma once

#include <string>

namespace cotepe {

/// UTF-8 as UTF-16.
std::wstring largo(const std::string& texto);

/// UTF-16 as UTF-8.
std::string estreito(const wchar_t* texto);

/// A path as the system opens it: a long one whole and marked as such, so that its length has no bound.
std::wstring caminhoLargo(const std::string& caminho);

/// Sets errno to what the system's last error says.
void anotaErro();

}  // namespace cotepe
