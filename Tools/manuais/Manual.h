// Manual pages.
#pragma once

#include <string>
#include <vector>

#include "Comando.h"

namespace cotepe::manuais {

/// Name of the page of `comandos[qual]` without its section: "cotepe" or "cotepe-generate".
std::string nomeDaPagina(const std::vector<Comando>& comandos, std::size_t qual);

/// The page itself, for section 1, in roff.
std::string pagina(const std::vector<Comando>& comandos, std::size_t qual, const std::string& versao);

}  // namespace cotepe::manuais
