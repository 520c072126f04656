// An open stream of the C library: what that library has no word for.
#pragma once

#include <cstdio>

namespace cotepe {

/// Leaves a file without contents, and the stream to be closed; what has none, as a pipe, keeps what it got.
void esvazia(std::FILE* fluxo) noexcept;

}  // namespace cotepe
