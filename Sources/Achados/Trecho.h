// The part of a long line that a person should see.
#pragma once

#include <string>
#include <string_view>

namespace cotepe {

struct Trecho {
  std::string linha;  // one column per byte; what cannot be shown in one column is '?'
  std::string marca;  // a caret and tildes under the bytes concerned; empty when there are none
};

/// At most `colunas` columns of the line around the bytes `de` to `ate` (from 1; 0 for none); "..." marks
/// what is left out. Bytes past the end of the line are shown as its end.
Trecho trechoDaLinha(std::string_view linha, int de, int ate, std::size_t colunas = 100);

}  // namespace cotepe
