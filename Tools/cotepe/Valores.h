// Values as options take them: each is checked where it stands on the command line, and brought to one form.
#pragma once

#include <CLI/CLI.hpp>
#include <limits>
#include <string>
#include <vector>

namespace cotepe::programa {

///@{
/// A decimal number between the two; zeros in front of it count for nothing. For Option::transform, as all of
/// these.
CLI::Validator numeroEntre(long menor, long maior);
inline CLI::Validator numeroDesde(long menor) { return numeroEntre(menor, std::numeric_limits<long>::max()); }
///@}

/// One of the words, in any case.
CLI::Validator escolha(std::vector<std::string> palavras);

/// A command of the printer: MF, MFD, TDM or RZ, in any case.
CLI::Validator comandoDoEcf();

/// The code of a register, in any case.
CLI::Validator codigoDeRegistro();

/// A day of the calendar; becomes YYYY-MM-DD.
CLI::Validator dia();

/// A month, as YYYY-MM or MM/YYYY; becomes YYYY-MM.
CLI::Validator mes();

}  // namespace cotepe::programa
