// The word that was probably meant.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace cotepe::programa {

/// The candidate nearest to the word, ignoring case, among those for which at most a third of its letters are
/// wrong, or that begin with it; empty when there is none.
std::string maisParecida(std::string_view palavra, const std::vector<std::string>& candidatas);

/// " (did you mean generate?)", or empty, to be appended to a message.
std::string voceQuisDizer(std::string_view palavra, const std::vector<std::string>& candidatas);

}  // namespace cotepe::programa
