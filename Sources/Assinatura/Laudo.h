// What a signed file and a public key show.
#pragma once

#include <cstdint>
#include <functional>
#include <set>
#include <string>

#include "Assinatura/Assinatura.h"

namespace cotepe {

/// The verdict on a signature.
enum class Parecer : std::uint8_t {
  Valida,     ///< the file is what the signature says
  Alterada,   ///< the signature has a known form and says something else
  NaoSeSabe,  ///< not a known form
};

/// Whether the bytes before the EAD line have the hash that it gives, apart from line ends and a byte-order
/// mark.
enum class Conteudo : std::uint8_t { NaoSeSabe, Confere, Difere };

/// What was found, each a cause of its own.
enum class Diagnostico : std::uint8_t {
  SemEad,             ///< no line begins with EAD
  FinsDeLinha,        ///< the content agrees, with other line ends
  ResumoInvertido,    ///< the hash is in the signature with its bytes reversed
  DigitosPerdidos,    ///< fewer than 256 digits
  Md5Puro,            ///< 32 digits of a hash that nobody signed
  ResumoEmTexto,      ///< the hash was signed as hexadecimal text
  TextoDepois,        ///< bytes after the digits, on the line or after it
  Bom,                ///< a byte-order mark at the start
  DuasEads,           ///< more than one line begins with EAD
  Pkcs1,              ///< signed in the form of PKCS#1
  OutraChave,         ///< another key, or a maker's own form
  OutroResumo,        ///< PKCS#1 around something other than an MD5
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
  long linhaDaEad = 0;       ///< 0 when there is none
  long eads = 0;             ///< how many lines begin with EAD
  std::uint64_t depois = 0;  ///< bytes after the EAD line
  std::size_t digitos = 0;   ///< of the EAD line
  ResumoMd5 resumo{};        ///< of what precedes it
  bool temAssinado = false;  ///< whether the signature could be read
  ResumoMd5 assinado{};      ///< the hash that it holds
};

/// Begins to read the file from its start again.
using Releitura = std::function<LeituraDeBytes()>;

/// Reads the file once and, when its signature holds another hash, once more for each other form of the line
/// ends. Throws ErroDaAssinatura and whatever reading throws.
Laudo verifica(const Releitura& releitura, const ChavePublica& chave);

}  // namespace cotepe
