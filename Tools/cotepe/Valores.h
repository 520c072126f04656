// Values of options: each is checked in its place on the command line, and converted to one form.
#pragma once

#include <CLI/CLI.hpp>
#include <limits>
#include <string>
#include <vector>

namespace cotepe::programa {

///@{
/// A decimal number between the two; leading zeros are ignored. For Option::transform, as all of these are.
CLI::Validator numeroEntre(long menor, long maior);
inline CLI::Validator numeroDesde(long menor) { return numeroEntre(menor, std::numeric_limits<long>::max()); }
///@}

/// One of the words, in upper or lower case.
CLI::Validator escolha(std::vector<std::string> palavras);

/// A command of the printer: MF, MFD, TDM or RZ, in upper or lower case.
CLI::Validator comandoDoEcf();

/// The code of a register, in upper or lower case.
CLI::Validator codigoDeRegistro();

/// A calendar day; becomes YYYY-MM-DD.
CLI::Validator dia();

/// A month, as YYYY-MM or MM/YYYY; becomes YYYY-MM.
CLI::Validator mes();

}  // namespace cotepe::programa
