// What the cryptography library says about its last failure.
#pragma once

#include <string>

namespace cotepe {

/// Returns the words of its first error since the last call and clears them all; empty when there is none.
std::string erroDaBiblioteca();

/// Whether the first error is that an algorithm is not available; clears nothing.
bool algoritmoFaltando();

}  // namespace cotepe
