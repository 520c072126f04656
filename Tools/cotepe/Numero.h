// Numbers as options give them.
#pragma once

#include <CLI/CLI.hpp>

namespace cotepe::programa {

/// Takes decimal digits alone, of a number from `menor` to what a long holds.
CLI::Validator numeroDesde(long menor);

}  // namespace cotepe::programa
