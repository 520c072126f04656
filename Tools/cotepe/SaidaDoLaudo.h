// What was found about a signature, as text and as JSON.
#pragma once

#include <iosfwd>
#include <string>

#include "Assinatura/Laudo.h"

namespace cotepe::programa {

/// A line with the verdict, and one for each finding.
void escreveTexto(std::ostream& saida, const std::string& arquivo, const Laudo& laudo);

/// One object, {"file":..,"verdict":..,"content":..,"findings":[..],..}, and a line-feed.
void escreveJson(std::ostream& saida, const std::string& arquivo, const Laudo& laudo);

}  // namespace cotepe::programa
