// What identifies the records of a register, whatever their place in the file.
#pragma once

#include <string>

#include "Leitor/LeitorDeRegistros.h"

namespace cotepe {

/// The key's values, the same for the same record in every layout: numbers without leading zeros, texts
/// without trailing blanks. `ordem` is the record's number in its register, from 1. For comparison only.
std::string chaveDe(const RegistroLido& lido, long ordem);

/// The key for people: "COO 102, Nº do item 2"; "number 2" for a register without a key; empty for its first
/// record.
std::string chaveParaPessoas(const RegistroLido& lido, long ordem);

/// Bytes of a field without the zeros or blanks that pad it.
std::string_view semEnchimento(Especie especie, std::string_view bytes) noexcept;

}  // namespace cotepe
