#include "PalavrasDaCli.h"

#include <memory>

#include "Idioma/Idioma.h"

namespace cotepe::programa {
namespace {

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

}  // namespace cotepe::programa
