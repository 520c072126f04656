// What is the same on every page: the head with its policy, the style and the script.
#pragma once

#include <string>

namespace cotepe::pagina {

/// A page up to its contents; the title is text. Nothing may be loaded from anywhere, and only the style and
/// the script in it are applied.
std::string inicioDoModelo(const std::string& titulo);

/// A box that hides the documents without the words typed into it; present only when scripts run.
std::string filtro();

/// The rest of a page, after its contents.
std::string fimDoModelo();

}  // namespace cotepe::pagina
