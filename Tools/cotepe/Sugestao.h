// The word that was probably meant.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace cotepe::programa {

/// The candidate nearest to the word, whatever the case of its letters, among those that a third of its
/// letters would be typed wrong for, or that it begins; empty where there is none.
std::string maisParecida(std::string_view palavra, const std::vector<std::string>& candidatas);

/// " (did you mean generate?)", or nothing, to be put behind a message.
std::string voceQuisDizer(std::string_view palavra, const std::vector<std::string>& candidatas);

}  // namespace cotepe::programa
