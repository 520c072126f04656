// A whole run as the fault tests see it, of the generator and of the second reading.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "Bancada.h"
#include "referencia/Referencia.h"

struct Corrida {
  int resultado = -1;
  std::string arquivo;
  std::vector<std::string> mensagens;
};

inline bool operator==(const Corrida& a, const Corrida& b) {
  return a.resultado == b.resultado && a.arquivo == b.arquivo && a.mensagens == b.mensagens;
}

struct Modo {
  std::string comando = "TDM";
  int versao = 1;
  bool cat52 = false;
};

inline std::ostream& operator<<(std::ostream& saida, const Modo& modo) {
  return saida << modo.comando << ", layout " << modo.versao << (modo.cat52 ? ", CAT52" : "");
}

/// The name of a report of this process alone, in memory where there is such a place, removed at the end.
class NomeDoRelatorio {
 public:
  NomeDoRelatorio()
      : nome_((access("/dev/shm", W_OK) == 0 ? "/dev/shm/" : "") + ("faults-" + std::to_string(getpid())) +
              ".txt") {}
  ~NomeDoRelatorio() { unlink(nome_.c_str()); }
  NomeDoRelatorio(const NomeDoRelatorio&) = delete;
  NomeDoRelatorio& operator=(const NomeDoRelatorio&) = delete;

  const char* nome() const { return nome_.c_str(); }
  std::string conteudo() const {
    std::ostringstream texto;
    texto << std::ifstream(nome_, std::ios::binary).rdbuf();
    return texto.str();
  }

 private:
  std::string nome_;
};

/// January 2024 by the generator.
inline Corrida corre(CotepeManager& gerador, const Modo& modo, const NomeDoRelatorio& relatorio) {
  g_mensagens.clear();
  gerador.setVersaoAtoCotepe(modo.versao);
  gerador.setCAT52(modo.cat52);
  Corrida corrida;
  corrida.resultado =
      gerador.GeraRegistrosTipoE(relatorio.nome(), "01012024", "31012024", modo.comando.c_str());
  corrida.arquivo = relatorio.conteudo();
  corrida.mensagens = std::exchange(g_mensagens, {});
  return corrida;
}

/// The same by the second reading.
inline Corrida segundaLeitura(sqlite3* banco, const Modo& modo) {
  referencia::Entrada entrada;
  entrada.versao = modo.versao;
  entrada.cat52 = modo.cat52;
  entrada.inicial = "01012024";
  entrada.final = "31012024";
  entrada.comando = modo.comando;
  entrada.dataHoraDoSistema = g_carimbo;
  const referencia::Saida saida = referencia::gera(banco, entrada);
  return {saida.codigo, saida.arquivo, saida.log};
}
