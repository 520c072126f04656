// Every register of the file, in the order of the file.
#pragma once

#include <array>

#include "Leiaute/Registro.h"

namespace cotepe {

extern const Registro kE01, kE02, kE03, kE04, kE05, kE06, kE07, kE08, kE09, kE10, kE11;
extern const Registro kE12, kE13, kE14, kE15, kE16, kE17, kE18, kE19, kE20, kE21, kE22;

inline constexpr std::array<const Registro*, 22> kCatalogo = {
    &kE01, &kE02, &kE03, &kE04, &kE05, &kE06, &kE07, &kE08, &kE09, &kE10, &kE11,
    &kE12, &kE13, &kE14, &kE15, &kE16, &kE17, &kE18, &kE19, &kE20, &kE21, &kE22};

/// The register of a code such as "E14"; null when there is none.
const Registro* registroDe(const char* codigo);

}  // namespace cotepe
