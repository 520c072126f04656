// Outlier days.
#pragma once

#include <cstdint>
#include <vector>

namespace cotepe::pagina {

/// A share of gross sales in hundredths of a percent; 0 of nothing.
std::int64_t proporcaoDe(std::int64_t parte, std::int64_t bruta);

/// The share above which a day is an outlier: the median and three times the median deviation from it (scaled
/// by 1.4826, as that of a normal distribution), but at least one percent above the median. Below 0 when
/// there are fewer than five days, which prove nothing.
std::int64_t limiteDosDesvios(std::vector<std::int64_t> proporcoes);

}  // namespace cotepe::pagina
