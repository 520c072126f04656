#include "Corrida/Corrida.h"

#include <sqlite3.h>

#include <cerrno>

#include "Geracao.h"
#include "Idioma/Idioma.h"
#include "RtcClasses.h"
#include "Sistema/Falha.h"
#include "Sistema/FalhaDeArquivo.h"
#include "Sistema/Sinais.h"

namespace cotepe::programa {
namespace {

constexpr int kPassosEntrePulsos = 10000;  // virtual-machine instructions of SQLite: well under a millisecond

}  // namespace

FimDaCorrida corre(sqlite3* banco, const PedidoDeGeracao& pedido, const std::string& arquivo,
                   HospedeiroDoPrograma& hospedeiro) {
  const auto continua = [](void* quem) {
    return static_cast<HospedeiroDoPrograma*>(quem)->continua() ? 0 : 1;
  };
  sqlite3_progress_handler(banco, kPassosEntrePulsos, continua, &hospedeiro);
  Geracao geracao(banco, hospedeiro);
  geracao.setVersaoAtoCotepe(pedido.leiaute.versao);
  geracao.setCAT52(pedido.leiaute.cat52);
  errno = 0;
  const int resultado = geracao.gera(arquivo.c_str(), pedido.de.ddmmaaaa().c_str(),
                                     pedido.ate.ddmmaaaa().c_str(), pedido.comando.c_str());
  const int erro = errno;
  sqlite3_progress_handler(banco, 0, nullptr, nullptr);
  paraSeInterrompido();
  return {resultado, erro};
}

std::string momentoAtual() {
  char data[] = "yyyymmdd", hora[] = "hhmmss", texto[sizeof data + sizeof hora];
  RtcAbsoluteTime agora;
  agora.GetCurrentDateTime();
  agora.ToStrDateTime(data, hora, texto);
  return texto;
}

ArquivoSemNome arquivoTemporario() try {
  return ArquivoSemNome(pastaTemporaria());
} catch (const FalhaDeArquivo& falha) {
  throw Falha(
      kNaoAbre,
      frase("cannot create a temporary file in {1}: {2}; set TMPDIR to a folder where files can be created",
            {falha.caminho(), motivoDoSistema(falha.erro())}));
}

std::string semIdentidade(const std::string& banco, const std::string& motivo) {
  return frase(
      "cannot read the printer's identity in {1}: {2}; a fiscal database has it in the tables dados_ecf and "
      "dados_usuario",
      {banco, motivo});
}

std::string incompletos(const std::vector<Etapa>& etapas) {
  std::string texto;
  for (const Etapa& etapa : etapas) {
    if (etapa.completa) continue;
    if (!texto.empty()) texto += ", ";
    texto += std::string(etapa.registro) + " (" + etapa.motivo + ")";
  }
  return texto;
}

}  // namespace cotepe::programa
