// One run of the generator held to the second reading.
#pragma once

#include <sqlite3.h>
#include <sys/mman.h>
#include <unistd.h>

#include <string>

#include "Bytes.h"
#include "CotepeManager.h"
#include "referencia/Hospedeiro.h"
#include "referencia/Referencia.h"

/// A report that stands in memory, under a name that can be opened.
class RelatorioEmMemoria {
 public:
  RelatorioEmMemoria() : descritor_(memfd_create("relatorio", MFD_CLOEXEC)) { EXIGE(descritor_ >= 0); }
  ~RelatorioEmMemoria() { close(descritor_); }
  RelatorioEmMemoria(const RelatorioEmMemoria&) = delete;
  RelatorioEmMemoria& operator=(const RelatorioEmMemoria&) = delete;

  std::string nome() const { return "/proc/self/fd/" + std::to_string(descritor_); }

  void esvazia() const { EXIGE(ftruncate(descritor_, 0) == 0); }

  std::string conteudo() const {
    std::string texto(static_cast<std::size_t>(lseek(descritor_, 0, SEEK_END)), '\0');
    EXIGE(pread(descritor_, texto.data(), texto.size(), 0) == static_cast<ssize_t>(texto.size()));
    return texto;
  }

 private:
  int descritor_;
};

/// Runs both with the same settings; result, report and log must agree.
inline void confronta(sqlite3* banco, CotepeManager& gerador, const referencia::Entrada& entrada) {
  static const RelatorioEmMemoria relatorio;
  relatorio.esvazia();
  referencia::acertaRelogio(entrada.dataHoraDoSistema);
  referencia::identifica(entrada.serialGlobal, entrada.modeloGlobal, entrada.tipoGlobal,
                         entrada.versaoSbGlobal);
  gerador.setVersaoAtoCotepe(entrada.versao);
  gerador.setCAT52(entrada.cat52);
  const int resultado = gerador.GeraRegistrosTipoE(relatorio.nome().c_str(), entrada.inicial.c_str(),
                                                   entrada.final.c_str(), entrada.comando.c_str());
  const referencia::Saida esperada = referencia::gera(banco, entrada);
  EXIGE(resultado == esperada.codigo);
  EXIGE(relatorio.conteudo() == esperada.arquivo);
  EXIGE(referencia::recolheLog() == esperada.log);
}
