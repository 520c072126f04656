// A finding about a report or about a database: structure first, text second.
#pragma once

#include <cstdint>
#include <string>

namespace cotepe {

enum class Severidade : std::uint8_t { Erro, Aviso };

/// One finding. Texts are for people, in English but for the law's labels; what does not apply is empty or 0.
struct Achado {
  Severidade severidade = Severidade::Erro;
  std::string regra;  // its name: lower case, words joined by hyphens; what --disable takes

  // Where: in a report ...
  std::string arquivo;
  long linha = 0;        // from 1
  int de = 0, ate = 0;   // bytes of the line, from 1, both included
  std::string conteudo;  // the line itself
  // ... or in a database.
  std::string tabela, chave, coluna;  // chave: what tells the row, such as "cont_coo=12"

  // Which field it is about, or would hit.
  std::string registro;  // "E14"
  std::string campo;     // its label
  int numero = 0;        // its place in the register, from 1

  std::string encontrado, esperado, conserto;  // found, expected, what to do
};

/// Takes findings as they are made.
class RecebeAchados {
 public:
  virtual ~RecebeAchados() = default;
  virtual void recebe(const Achado& achado) = 0;
};

}  // namespace cotepe
