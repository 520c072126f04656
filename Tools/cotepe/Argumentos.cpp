#include "Argumentos.h"

#include <set>

#include "Idioma/Idioma.h"
#include "Sistema/Falha.h"
#include "Sugestao.h"

namespace cotepe::programa {
namespace {

std::vector<std::string> nomesDosComandos(const CLI::App& app) {
  std::vector<std::string> nomes;
  for (const CLI::App* comando : app.get_subcommands({})) nomes.push_back(comando->get_name());
  return nomes;
}

template <class App>
App* comandoDe(App& app, const std::string& nome) {
  for (App* comando : app.get_subcommands({}))
    if (comando->get_name() == nome) return comando;
  return nullptr;
}

[[noreturn]] void recusa(const std::string& texto, const std::string& comando) {
  const std::string ajuda = "cotepe" + (comando.empty() ? comando : ' ' + comando) + " --help";
  throw Falha(kUsoErrado, frase("{1}; see {2}", {texto, ajuda}));
}

[[noreturn]] void naoHaComando(const CLI::App& app, const std::string& nome) {
  recusa(frase("unknown command {1}", {nome}) + voceQuisDizer(nome, nomesDosComandos(app)), "");
}

/// The arguments after the name of a command.
class Argumentos {
 public:
  Argumentos(CLI::App& comando, const std::vector<std::string>& todos, std::size_t primeiro)
      : comando_(comando), todos_(todos), i_(primeiro) {
    for (CLI::Option* opcao : comando.get_options(nullptr))
      if (opcao->get_positional()) posicionais_.push_back(opcao);
  }

  void confere() {
    for (; i_ < todos_.size(); ++i_) {
      const std::string& texto = todos_[i_];
      if (!soPosicionais_ && texto == "--")
        soPosicionais_ = true;
      else if (!soPosicionais_ && texto.size() > 1 && texto[0] == '-')
        confereOpcao(texto);
      else
        conferePosicional(texto);
    }
    for (CLI::Option* opcao : comando_.get_options(nullptr))
      if (opcao->get_required() && vistas_.count(opcao) == 0)
        falha(frase("{1} is missing", {opcao->get_name()}));
  }

 private:
  [[noreturn]] void falha(const std::string& texto) const { recusa(texto, comando_.get_name()); }

  void confereOpcao(const std::string& texto) {
    const std::size_t igual = texto.find('=');
    const std::string nome = texto.substr(0, igual);
    CLI::Option* opcao = comando_.get_option_no_throw(nome);
    if (opcao == nullptr || nome.substr(0, 1) != "-")
      falha(frase("unknown option {1}", {nome}) + parecidaCom(nome));
    if (opcao->get_items_expected_max() == 0) {
      if (igual != std::string::npos) falha(frase("{1} takes no value", {nome}));
      return;
    }
    if (igual == std::string::npos && ++i_ == todos_.size()) falha(frase("{1} needs a value", {nome}));
    const bool repete = opcao->get_items_expected_max() > 1 ||
                        opcao->get_multi_option_policy() == CLI::MultiOptionPolicy::TakeAll;
    if (!vistas_.insert(opcao).second && !repete) falha(frase("{1} is given twice", {nome}));
    confereValor(*opcao, igual == std::string::npos ? todos_[i_] : texto.substr(igual + 1));
  }

  void conferePosicional(const std::string& texto) {
    if (quantos_ == posicionais_.size()) falha(frase("unexpected argument {1}", {texto}));
    CLI::Option* opcao = posicionais_[quantos_];
    vistas_.insert(opcao);
    confereValor(*opcao, texto);
    if (opcao->get_items_expected_max() <= 1) ++quantos_;
  }

  void confereValor(CLI::Option& opcao, const std::string& texto) const {
    const char separador = opcao.get_delimiter();
    std::size_t inicio = 0;
    for (std::size_t fim = 0; fim != std::string::npos; inicio = fim + 1) {
      fim = separador == '\0' ? std::string::npos : texto.find(separador, inicio);
      confereParte(opcao, texto.substr(inicio, fim - inicio));
    }
  }

  void confereParte(CLI::Option& opcao, std::string texto) const {
    for (int i = 0;; ++i) {
      const CLI::Validator* validador = nullptr;
      try {
        validador = opcao.get_validator(i);
      } catch (const CLI::OptionNotFound&) {
        return;  // all of them were checked
      }
      const std::string erro = (*validador)(texto);
      if (!erro.empty()) falha(opcao.get_name() + ": " + erro);
    }
  }

  std::string parecidaCom(const std::string& nome) const {
    std::vector<std::string> nomes;
    for (const CLI::Option* opcao : comando_.get_options(nullptr))
      for (const std::string& longo : opcao->get_lnames()) nomes.push_back("--" + longo);
    return voceQuisDizer(nome, nomes);
  }

  CLI::App& comando_;
  const std::vector<std::string>& todos_;
  std::size_t i_;
  std::vector<CLI::Option*> posicionais_;
  std::set<const CLI::Option*> vistas_;
  std::size_t quantos_ = 0;  // positional arguments already given
  bool soPosicionais_ = false;
};

bool pedeAjuda(const std::string& texto) { return texto == "-h" || texto == "--help"; }

}  // namespace

const CLI::App* ajudaPedida(const CLI::App& app, const std::vector<std::string>& argumentos) {
  if (argumentos.empty()) return nullptr;
  const std::string& primeiro = argumentos[0];
  if (pedeAjuda(primeiro)) return &app;
  if (primeiro == "help") {
    if (argumentos.size() == 1 || pedeAjuda(argumentos[1])) return &app;
    const CLI::App* comando = comandoDe(app, argumentos[1]);
    return comando != nullptr ? comando : (naoHaComando(app, argumentos[1]), nullptr);
  }
  const CLI::App* comando = comandoDe(app, primeiro);
  for (std::size_t i = 1; comando != nullptr && i < argumentos.size() && argumentos[i] != "--"; ++i)
    if (pedeAjuda(argumentos[i])) return comando;
  return nullptr;
}

void confereArgumentos(CLI::App& app, const std::vector<std::string>& argumentos) {
  if (argumentos.empty()) recusa(traduz("a command is missing"), "");
  const std::string& nome = argumentos[0];
  if (nome == "-V" || nome == "--version") return;
  CLI::App* comando = comandoDe(app, nome);
  if (comando == nullptr && nome.substr(0, 1) == "-") recusa(frase("unknown option {1}", {nome}), "");
  if (comando == nullptr) naoHaComando(app, nome);
  Argumentos(*comando, argumentos, 1).confere();
}

}  // namespace cotepe::programa
