// A host that is an object, with no global: objeto DATABASE REPORT FIRST_DAY LAST_DAY, days as DDMMYYYY.
#include <sqlite3.h>

#include <cstdio>
#include <cstring>

#include "Geracao.h"

namespace {

class Aplicativo final : public cotepe::Hospedeiro {
 public:
  void registraLog(const char* mensagem) override { std::fprintf(stderr, "objeto: %s\n", mensagem); }
  const char* serial() override { return "BR0000000000000001"; }
  const char* modelo() override { return "IMPRESSORA"; }
  const char* tipo() override { return "ECF-IF"; }
  void dataHoraAtual(char* saida) override { std::strcpy(saida, "20240229 083000"); }
  void preenche(char* texto, char* destino, int largura) override {
    const auto bytes = static_cast<std::size_t>(largura);
    std::memset(destino, ' ', bytes);
    std::memcpy(destino, texto, strnlen(texto, bytes));
  }
  void conclui(const char* /*registro*/, long /*linhas*/, bool completo) override {
    completa = completa && completo;
  }

  bool completa = true;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 5) return 2;
  sqlite3* banco = nullptr;
  if (sqlite3_open_v2(argv[1], &banco, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) return 3;
  Aplicativo aplicativo;
  cotepe::Geracao geracao(banco, aplicativo);
  geracao.setVersaoAtoCotepe(2);
  const int resultado = geracao.gera(argv[2], argv[3], argv[4], "TDM");
  sqlite3_close(banco);
  return resultado == cotepe::kGerado && !aplicativo.completa ? 1 : resultado;
}
