// The layout tables as text, Markdown and JSON.
#pragma once

#include <string>
#include <vector>

#include "TabelaDoLeiaute.h"

namespace cotepe::programa {

using Tabelas = std::vector<TabelaDoLeiaute>;

std::string emTexto(const Tabelas& tabelas);
std::string emMarkdown(const Tabelas& tabelas);

/// An array with an object for each table; its members have the names of the columns of the other formats.
std::string emJson(const Tabelas& tabelas);

}  // namespace cotepe::programa
