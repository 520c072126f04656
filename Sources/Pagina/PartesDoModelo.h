// The template, the style and the script of the page, which the build takes from files of their own.
#pragma once

namespace cotepe::pagina {

///@{
/// The files' contents.
extern const char* const kModelo;
extern const char* const kEstilo;
extern const char* const kRoteiro;
///@}

///@{
/// The SHA-256 of the style and of the script, hexadecimal.
extern const char* const kDigestoDoEstilo;
extern const char* const kDigestoDoRoteiro;
///@}

}  // namespace cotepe::pagina
