// What can be told of a signed file and a public key.
#pragma once

#include <cstdint>
#include <functional>
#include <set>
#include <string>

#include "Assinatura/Assinatura.h"

namespace cotepe {

/// What is said of a signature.
enum class Parecer : std::uint8_t {
  Valida,     ///< the file is what the signature says
  Alterada,   ///< the signature is of a known shape and says something else
  NaoSeSabe,  ///< no known shape
};

/// Whether the bytes before the EAD line have the hash that it gives, line ends and a byte-order mark apart.
enum class Conteudo : std::uint8_t { NaoSeSabe, Confere, Difere };

/// What was found, each a cause of its own.
enum class Diagnostico : std::uint8_t {
  SemEad,             ///< no line begins with EAD
  FinsDeLinha,        ///< the content agrees, with other line ends
  ResumoInvertido,    ///< the hash stands in the signature with its bytes reversed
  DigitosPerdidos,    ///< fewer than 256 digits
  Md5Puro,            ///< 32 digits of a hash that nobody signed
  ResumoEmTexto,      ///< the hash was signed as hexadecimal text
  TextoDepois,        ///< bytes behind the digits, in the line or after it
  Bom,                ///< a byte-order mark in front
  DuasEads,           ///< more than one line begins with EAD
  Pkcs1,              ///< signed in the form of PKCS#1
  OutraChave,         ///< another key, or a maker's own form
  OutroResumo,        ///< PKCS#1 around something that is no MD5
  OutroOuOutraChave,  ///< the hash differs, or the key is another
  DigitosMisturados,  ///< digits in upper and lower case: no program writes them so
  SemDigitos,         ///< the EAD line holds no signature
  OutroConteudo,      ///< the hash differs
};

/// The name of a diagnosis for programs, such as "line-ends-changed".
const char* nomeDe(Diagnostico diagnostico);
/// "valid", "changed" or "cannot-be-told".
const char* nomeDe(Parecer parecer);
/// "agrees", "differs" or "unknown".
const char* nomeDe(Conteudo conteudo);

struct Laudo {
  Parecer parecer = Parecer::NaoSeSabe;
  Conteudo conteudo = Conteudo::NaoSeSabe;
  std::set<Diagnostico> diagnosticos;
  long linhas = 0;           ///< of the file
  long linhaDaEad = 0;       ///< 0 where there is none
  long eads = 0;             ///< how many lines begin with EAD
  std::uint64_t depois = 0;  ///< bytes behind the EAD line
  std::size_t digitos = 0;   ///< of the EAD line
  ResumoMd5 resumo{};        ///< of what stands before it
  bool temAssinado = false;  ///< the signature could be read:
  ResumoMd5 assinado{};      ///< the hash that it holds
};

/// Begins to read the file anew.
using Releitura = std::function<LeituraDeBytes()>;

/// Reads the file once, and where its signature says another hash once more for each other form of the line
/// ends. Throws ErroDaAssinatura, and what reading throws.
Laudo verifica(const Releitura& releitura, const ChavePublica& chave);

}  // namespace cotepe
