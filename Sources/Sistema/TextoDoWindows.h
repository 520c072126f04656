// Texts as Windows takes them: UTF-16, and long paths in a form without its limit. For the Windows halves
// only.
#pragma once

#include <string>

namespace cotepe {

/// UTF-8 as UTF-16.
std::wstring largo(const std::string& texto);

/// UTF-16 as UTF-8.
std::string estreito(const wchar_t* texto);

/// A path in the form that the system opens: a long one is made absolute and marked, so that its length is
/// unlimited.
std::wstring caminhoLargo(const std::string& caminho);

/// Sets errno from the system's last error.
void anotaErro();

}  // namespace cotepe
