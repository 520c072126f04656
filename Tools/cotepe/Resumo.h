// What is said of a run when it is over.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "HospedeiroDoPrograma.h"

namespace cotepe::programa {

/// A line for each register with its count of lines, and one for the whole report.
std::string resumo(const std::vector<Etapa>& etapas, const std::string& relatorio, std::int64_t bytes,
                   double segundos);

/// The failure of a run whose database does not say which printer it is of.
std::string semIdentidade(const std::string& banco, const std::string& motivo);

/// The registers that are not complete, each with its reason: "E06 (no such table: moeda), E09 (...)"; empty
/// when there is none.
std::string incompletos(const std::vector<Etapa>& etapas);

}  // namespace cotepe::programa
