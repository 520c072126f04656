// What tells the records of a register apart, whatever their place in the file.
#pragma once

#include <array>
#include <string>

#include "Leitor/LeitorDeRegistros.h"

namespace cotepe {

/// The labels of the fields whose values name a record of the register; null where there are fewer. A
/// register without any has one record, or lines that repeat the ones before: there a record is known by its
/// number.
struct ChaveNatural {
  const Registro* registro;
  std::array<const char*, 2> campos;
};

inline constexpr std::array<ChaveNatural, kCatalogo.size()> kChavesNaturais = {{
    {&kE01, {}},
    {&kE02, {}},
    {&kE03, {}},
    {&kE04, {}},
    {&kE05, {}},
    {&kE06, {}},
    {&kE07, {"Versão do software básico"}},
    {&kE08, {}},
    {&kE09, {"CRO"}},
    {&kE10, {"CFD"}},
    {&kE11, {}},
    {&kE12, {"CRZ"}},
    {&kE13, {"CRZ", "Totalizador parcial"}},
    {&kE14, {"CCF"}},
    {&kE15, {"COO", "Nº do item"}},
    {&kE16, {"COO"}},
    {&kE17, {"CRZ", "Totalizador não fiscal"}},
    {&kE18, {"CRZ", "Meio de pagamento"}},
    {&kE19, {"GNF"}},
    {&kE20, {"COO", "Nº do item"}},
    {&kE21, {"COO", "Meio de pagamento"}},
    {&kE22, {"Número"}},
}};

/// The key's values, the same for the same record in every layout: numbers without leading zeros, texts
/// without trailing blanks. `ordem` is the record's number in its register, from 1. For comparison only.
std::string chaveDe(const RegistroLido& lido, long ordem);

/// The key for people: "COO 102, Nº do item 2"; "number 2" of a register without; nothing for its first.
std::string chaveParaPessoas(const RegistroLido& lido, long ordem);

/// Bytes of a field as its value alone: without the zeros or blanks that fill it up.
std::string_view semEnchimento(Especie especie, std::string_view bytes) noexcept;

}  // namespace cotepe
