#include "Sistema/PastaSegura.h"

#include <filesystem>
#include <system_error>

#include "Idioma/Idioma.h"
#include "Sistema/PalavrasDoArquivo.h"

namespace cotepe::programa {
namespace {

namespace fs = std::filesystem;

constexpr char kFimDaPasta[] = ".d";

fs::path caminhoDe(const std::string& utf8) { return fs::u8path(utf8); }

std::string semBarraNoFim(std::string caminho) {
  while (caminho.size() > 1 && caminho.back() == '/') caminho.pop_back();
  return caminho;
}

[[noreturn]] void existe(const std::string& onde, const std::string& encontrado) {
  throw Falha(kNaoAbre,
              frase("cannot create the output {1}: {2}; choose another --output", {onde, encontrado}));
}

[[noreturn]] void naoEscreve(const std::string& onde, const std::error_code& erro) {
  throw Falha(kNaoEscreve, frase("cannot write the output {1}: {2}; check the disk and try again",
                                 {onde, motivoDoSistema(erro.value())}));
}

}  // namespace

PastaSegura::PastaSegura(std::string destino, bool substitui, Conhece conhece)
    : destino_(semBarraNoFim(std::move(destino))),
      substitui_(substitui),
      conhece_(std::move(conhece)),
      trava_(trava()),
      temporaria_(trava_->temporario() + kFimDaPasta) {
  recolheSobras();
  std::error_code erro;
  if (!fs::create_directory(caminhoDe(temporaria_), erro)) naoEscreve(destino_, erro);
}

std::unique_ptr<ArquivoSeguro> PastaSegura::trava() const {
  exigeDestino();
  return emPalavras([this] { return std::make_unique<ArquivoSeguro>(destino_); });
}

PastaSegura::~PastaSegura() {
  std::error_code erro;
  if (!temporaria_.empty()) fs::remove_all(caminhoDe(temporaria_), erro);
}

void PastaSegura::exigeDestino() const {
  std::error_code erro;
  const fs::file_status situacao = fs::symlink_status(caminhoDe(destino_), erro);
  if (!fs::exists(situacao)) return;
  if (!fs::is_directory(situacao)) existe(destino_, traduz("it exists and is no folder"));
  if (!substitui_)
    existe(destino_, traduz("the folder exists; --force replaces one that an earlier run made"));
  for (const auto& item : fs::directory_iterator(caminhoDe(destino_), erro))
    if (!item.is_regular_file(erro) || !conhece_(item.path().filename().u8string()))
      existe(destino_, frase("the folder has {1} in it, which is none of this command's files",
                             {item.path().filename().u8string()}));
  if (erro) existe(destino_, motivoDoSistema(erro.value()));
}

// A folder whose lock file is gone has no writer: taking the new lock removed those of dead writers.
void PastaSegura::recolheSobras() const {
  const fs::path trava = caminhoDe(trava_->temporario());
  const std::string base =
      trava.filename().u8string().substr(0, trava.filename().u8string().rfind("cotepe-") + 7);
  std::error_code erro;
  for (const auto& item : fs::directory_iterator(trava.parent_path(), erro)) {
    const std::string nome = item.path().filename().u8string();
    const bool daqui = nome.rfind(base, 0) == 0 && item.path().extension() == kFimDaPasta;
    if (daqui && !fs::exists(item.path().parent_path() / item.path().stem(), erro))
      fs::remove_all(item.path(), erro);
  }
}

void PastaSegura::publica() {
  exigeDestino();
  std::error_code erro;
  const fs::path destino = caminhoDe(destino_), antiga = caminhoDe(temporaria_ + ".old" + kFimDaPasta);
  const bool havia = fs::exists(destino, erro);
  if (havia) fs::rename(destino, antiga, erro);
  if (erro) naoEscreve(destino_, erro);
  fs::rename(caminhoDe(temporaria_), destino, erro);
  if (erro) {
    std::error_code outro;
    if (havia) fs::rename(antiga, destino, outro);
    naoEscreve(destino_, erro);
  }
  temporaria_.clear();
  if (havia) fs::remove_all(antiga, erro);
}

}  // namespace cotepe::programa
