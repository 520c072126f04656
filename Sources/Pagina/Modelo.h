// What is the same on every page: the head with its policy, the style and the script.
#pragma once

#include <string>

namespace cotepe::pagina {

/// A page up to its contents; the title is text. Nothing may be loaded from anywhere, and no other style or
/// script than the ones in it is obeyed.
std::string inicioDoModelo(const std::string& titulo);

/// A box that hides the documents without the words typed into it; there only where scripts run.
std::string filtro();

/// A page from behind its contents on.
std::string fimDoModelo();

}  // namespace cotepe::pagina
