#include "PalavrasDaCli.h"

#include <memory>
#include <vector>

#include "Idioma/Idioma.h"

namespace cotepe::programa {
namespace {

// The sentences of CLI11 that these commands can bring about, the longer one first where two begin alike.
constexpr const char* kFrases[] = {
    marca("A subcommand is required"),
    marca("{1} is required"),
    marca("Could not convert: {1} = {2}"),
    marca("{1}: Value {2} not in range {3} to {4}"),
    marca("{1}: {2} not in {3}"),
    marca("{1}: {2} required {3} missing"),
    marca("{1}: At Most {2} required but received {3}"),
    marca("{1}: At least {2} required but received {3}"),
    marca("{1} was given a disallowed flag override"),
    marca("The following argument was not expected: {1}"),
    marca("The following arguments were not expected: {1}"),
};

// What stands in the places of the model where the text is made by it, each as short as can be; none where it
// is not.
std::vector<std::string_view> partesDe(std::string_view texto, std::string_view modelo) {
  std::vector<std::string_view> partes;
  for (std::size_t lugar = modelo.find('{'); lugar != std::string_view::npos; lugar = modelo.find('{')) {
    if (texto.substr(0, lugar) != modelo.substr(0, lugar)) return {};
    texto.remove_prefix(lugar);
    modelo.remove_prefix(lugar + 3);
    const std::string_view depois = modelo.substr(0, modelo.find('{'));
    const std::size_t fim = depois.empty() ? texto.size() : texto.find(depois);
    if (fim == std::string_view::npos) return {};
    partes.push_back(texto.substr(0, fim));
    texto.remove_prefix(fim);
  }
  return texto == modelo ? partes : std::vector<std::string_view>();
}

class Ajuda final : public CLI::Formatter {
 public:
  std::string make_group(std::string grupo, bool posicionais,
                         std::vector<const CLI::Option*> opcoes) const override {
    return Formatter::make_group(grupo == "Options" ? traduz("Options") : std::move(grupo), posicionais,
                                 std::move(opcoes));
  }
};

}  // namespace

void falaOIdioma(CLI::App& app) {
  const auto ajuda = std::make_shared<Ajuda>();
  ajuda->label("Usage", traduz("Usage"));
  ajuda->label("OPTIONS", traduz("OPTIONS"));
  ajuda->label("Positionals", traduz("Positionals"));
  ajuda->label("SUBCOMMAND", traduz("SUBCOMMAND"));
  ajuda->label("REQUIRED", traduz("REQUIRED"));
  app.formatter(ajuda);
  app.set_help_flag("-h,--help", traduz("Print this help message and exit"));
}

std::string traduzDaBiblioteca(std::string_view texto) {
  for (const char* modelo : kFrases) {
    std::vector<std::string_view> partes = partesDe(texto, modelo);
    if (texto != modelo && partes.empty()) continue;
    partes.resize(4);
    return frase(modelo, {partes[0], partes[1], partes[2], partes[3]});
  }
  return std::string(texto);
}

}  // namespace cotepe::programa
