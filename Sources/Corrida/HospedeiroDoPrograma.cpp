#include "Corrida/HospedeiroDoPrograma.h"

#include <sqlite3.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "ArquivoDeLog.h"
#include "Idioma/Idioma.h"
#include "PreencheComChar.h"
#include "Sistema/Falha.h"
#include "Sistema/Progresso.h"
#include "Sistema/Sinais.h"

namespace cotepe::programa {
namespace {

constexpr std::size_t kMomento = 40;  // bytes that the generator takes of the clock, without the terminator

}  // namespace

void HospedeiroDoPrograma::registraLog(const char* mensagem) {
  paraSeInterrompido();
  motivo_ = sqlite3_errmsg(banco_);
  progresso_.limpa();
  if (!log_.escreve((std::string(mensagem) + ": " + motivo_).c_str()))
    avisa(frase("cannot write the log: {1}", {motivoDoSistema(errno)}));
}

void HospedeiroDoPrograma::dataHoraAtual(char* saida) {
  // The moment may come from a line of a report, which can be of any length.
  std::memcpy(saida, momento_.c_str(), std::min(momento_.size(), kMomento));
}

void HospedeiroDoPrograma::preenche(char* texto, char* destino, int largura) {
  PreencheComChar(texto, destino, largura, ' ', 1);
}

void HospedeiroDoPrograma::falhaSemMensagem() { motivo_ = sqlite3_errmsg(banco_); }

void HospedeiroDoPrograma::inicia(const char* registro) {
  paraSeInterrompido();
  motivo_.clear();
  progresso_.etapa(registro);
}

void HospedeiroDoPrograma::conclui(const char* registro, long linhas, bool completo) {
  etapas_.push_back({registro, linhas, completo, motivo_});
}

bool HospedeiroDoPrograma::continua() noexcept {
  progresso_.pulsa();
  return sinalRecebido() == 0;
}

}  // namespace cotepe::programa
