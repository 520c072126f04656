// Records that are gone, come twice, or stand elsewhere; whole registers that are gone.
#include "Adulterado.h"

namespace cotepe {
namespace {

bool remove(Adulterado& relatorio, int vez, const Classe& classe) {
  const auto linhas = relatorio.de(classe.registro);
  if (linhas.empty()) return false;
  relatorio.remove(escolhe(linhas, vez));
  return true;
}

bool removeTodos(Adulterado& relatorio, int vez, const Classe& classe) {
  if (vez != 0 || relatorio.de(classe.registro).empty()) return false;
  relatorio.removeRegistro(classe.registro);
  return true;
}

bool duplica(Adulterado& relatorio, int vez, const Classe& classe) {
  const auto linhas = relatorio.de(classe.registro);
  if (linhas.empty()) return false;
  const std::size_t linha = escolhe(linhas, vez);
  relatorio.insere(linha + 1, relatorio.texto(linha));
  relatorio.culpa(linha);
  return true;
}

bool permuta(Adulterado& relatorio, int vez, const Classe& classe) {
  auto linhas = relatorio.de(classe.registro);
  if (linhas.size() < 2) return false;
  linhas.pop_back();
  const std::size_t linha = escolhe(linhas, vez);
  if (relatorio.texto(linha) == relatorio.texto(linha + 1)) return false;
  relatorio.permuta(linha, linha + 1);
  return true;
}

bool aoFim(Adulterado& relatorio, int vez, const Classe& classe) {
  const auto linhas = relatorio.de(classe.registro);
  if (linhas.empty() || linhas.back() + 1 == relatorio.quantas()) return false;
  const std::size_t linha = escolhe(linhas, vez);
  const std::string texto = relatorio.texto(linha);
  relatorio.remove(linha);
  relatorio.insere(relatorio.quantas(), texto);
  return true;
}

}  // namespace

std::vector<Classe> classesDeRegistros() {
  std::vector<Classe> classes;
  for (const char* r : {"E01", "E02", "E05", "E06", "E07", "E08", "E09", "E10", "E11", "E12",
                        "E13", "E14", "E15", "E16", "E17", "E18", "E19", "E20", "E21", "E22"}) {
    classes.push_back({std::string("all of ") + r + " gone", removeTodos, r, "", 0, ""});
    classes.push_back({std::string(r) + " twice", duplica, r, "", 0, ""});
    if (std::string(r) != "E22") classes.push_back({std::string(r) + " at the end", aoFim, r, "", 0, ""});
  }
  for (const char* r : {"E12", "E13", "E14", "E15", "E16", "E17", "E18", "E19", "E20", "E21"})
    classes.push_back({std::string("one ") + r + " gone", remove, r, "", 0, ""});
  for (const char* r : {"E07", "E12", "E13", "E14", "E15", "E16", "E17", "E18", "E19", "E20"})
    classes.push_back({std::string(r) + " before the one it follows", permuta, r, "", 0, ""});
  return classes;
}

}  // namespace cotepe
