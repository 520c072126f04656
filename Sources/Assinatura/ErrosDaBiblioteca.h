// What the cryptography library says of its last failure.
#pragma once

#include <string>

namespace cotepe {

/// The words of its first error since the last call, and forgets all of them; empty when there is none.
std::string erroDaBiblioteca();

/// Whether the first error is that an algorithm is not to be had; forgets none.
bool algoritmoFaltando();

}  // namespace cotepe
