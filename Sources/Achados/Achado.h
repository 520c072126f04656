// A finding about a report or about a database: structure first, text second.
#pragma once

#include <cstdint>
#include <string>

namespace cotepe {

/// How much a finding weighs.
enum class Severidade : std::uint8_t { Erro, Aviso };

/// One finding. Texts are for people, in the user's language except for the law's labels; what does not apply
/// is empty or 0.
struct Achado {
  Severidade severidade = Severidade::Erro;  ///< of the rule
  std::string regra;  ///< its name: lower case, words joined by hyphens; what --disable takes

  // Where: in a report ...
  std::string arquivo;   ///< its name, as it was given
  long linha = 0;        ///< from 1
  int de = 0;            ///< first byte concerned in the line, from 1
  int ate = 0;           ///< last byte concerned, from 1, included
  std::string conteudo;  ///< the line itself
  // ... or in a database.
  std::string tabela;  ///< its name
  std::string chave;   ///< what identifies the row, such as "cont_coo=12"
  std::string coluna;  ///< its name

  // Which field it is about, or would end up in.
  std::string registro;  ///< "E14"
  std::string campo;     ///< its label
  int numero = 0;        ///< its place in the register, from 1

  long outraLinha = 0;  ///< of the report that it was compared with, from 1

  std::string encontrado;  ///< what was found
  std::string esperado;    ///< what was expected
  std::string conserto;    ///< what to do
};

/// Receives findings as they are made.
class RecebeAchados {
 public:
  virtual ~RecebeAchados() = default;
  /// Takes one; borrowed for the call.
  virtual void recebe(const Achado& achado) = 0;
};

}  // namespace cotepe
