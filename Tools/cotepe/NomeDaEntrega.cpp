#include "NomeDaEntrega.h"

#include <sys/stat.h>

#include <algorithm>
#include <cctype>
#include <ctime>
#include <filesystem>
#include <string_view>

#include "Corrida/Corrida.h"
#include "Entrada/RelatorioLido.h"
#include "Leitor/LeitorDeRegistros.h"
#include "NomeDoRelatorio.h"

namespace cotepe::programa {
namespace {

bool soDigitos(std::string_view texto) {
  return std::all_of(texto.begin(), texto.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::string semBrancos(std::string_view texto) {
  return std::string(texto.substr(0, texto.find_last_not_of(' ') + 1));
}

// The file's own time, as AAAAMMDD, a blank, HHMMSS.
std::string momentoDoArquivo(const std::string& caminho) {
  struct stat estado {};
  if (stat(caminho.c_str(), &estado) != 0) return momentoAtual();
  std::tm partes{};
  char texto[32];
  if (localtime_r(&estado.st_mtime, &partes) == nullptr ||
      std::strftime(texto, sizeof texto, "%Y%m%d %H%M%S", &partes) == 0)
    return momentoAtual();
  return texto;
}

struct Cabecalho {
  std::string comando, numero, momento;
};

// E11 is near the start, after only the registers of the printer.
Cabecalho leCabecalho(const std::string& caminho) {
  RelatorioLido relatorio(caminho);
  LeitorDeRegistros registros(relatorio.linhas());
  Cabecalho lido;
  for (RegistroLido registro; lido.momento.empty() && registros.proximo(registro);) {
    const std::string_view codigo = registro.linha.texto.substr(0, 3);
    if (codigo == "E01" && registro.medidaCerta) {
      lido.comando = semBrancos(registro.bytesDe("Comando de geração"));
      lido.numero = semBrancos(registro.bytesDe("Nº de fabricação"));
    }
    if (lido.comando.empty() || codigo > "E11") break;
    if (codigo != "E11") continue;
    const std::string_view data = registro.bytesDe("Data de geração"),
                           hora = registro.bytesDe("Hora de geração");
    if (data.size() == 8 && hora.size() == 6 && soDigitos(data) && soDigitos(hora))
      lido.momento = std::string(data) + ' ' + std::string(hora);
  }
  relatorio.confereLeitura();
  return lido;
}

}  // namespace

bool nomeDaLei(const std::string& nome) {
  constexpr std::string_view kMomento = "_00000000_000000.TXT";
  constexpr std::size_t kMaximoDoNumero = 20;
  std::string_view resto = nome;
  for (const std::string_view comando : {"MFD", "MF", "TDM", "RZ"}) {
    if (resto.substr(0, comando.size()) != comando) continue;
    resto.remove_prefix(comando.size());
    break;
  }
  if (resto.size() == nome.size() || resto.size() <= kMomento.size() ||
      resto.size() > kMomento.size() + kMaximoDoNumero)
    return false;
  const std::string_view momento = resto.substr(resto.size() - kMomento.size());
  const bool certo = std::equal(momento.begin(), momento.end(), kMomento.begin(), [](char c, char modelo) {
    return modelo == '0' ? c >= '0' && c <= '9' : c == modelo;
  });
  const std::string_view numero = resto.substr(0, resto.size() - kMomento.size());
  return certo && std::all_of(numero.begin(), numero.end(), [](char c) {
           return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '-' || c == '_';
         });
}

std::string nomeDaEntrega(const std::string& relatorio) {
  std::string proprio = std::filesystem::path(relatorio).filename().string();
  if (nomeDaLei(proprio)) return proprio;
  const Cabecalho lido = leCabecalho(relatorio);
  if (lido.comando.empty()) return proprio;
  return NomeDoRelatorio(lido.comando, lido.numero,
                         lido.momento.empty() ? momentoDoArquivo(relatorio) : lido.momento)
      .completo;
}

}  // namespace cotepe::programa
