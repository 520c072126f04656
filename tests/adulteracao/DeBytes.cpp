// Single bytes and whole lines that are no longer what the law asks for.
#include "Adulterado.h"

namespace cotepe {
namespace {

constexpr const char* kComRegistros[] = {"E01", "E02", "E05", "E06", "E07", "E08", "E09",
                                         "E10", "E11", "E12", "E13", "E14", "E15", "E16",
                                         "E17", "E18", "E19", "E20", "E21", "E22"};

bool emUmaLinha(Adulterado& relatorio, int vez, const Classe& classe, std::string (*muda)(std::string)) {
  const auto linhas = relatorio.de(classe.registro);
  if (linhas.empty()) return false;
  const std::size_t linha = escolhe(linhas, vez);
  relatorio.trocaTexto(linha, muda(relatorio.texto(linha)));
  return true;
}

bool corta(Adulterado& relatorio, int vez, const Classe& classe) {
  return emUmaLinha(relatorio, vez, classe,
                    [](std::string texto) { return texto.substr(0, texto.size() - 1); });
}

bool alonga(Adulterado& relatorio, int vez, const Classe& classe) {
  return emUmaLinha(relatorio, vez, classe, [](std::string texto) { return texto + '0'; });
}

bool comRetorno(Adulterado& relatorio, int vez, const Classe& classe) {
  return emUmaLinha(relatorio, vez, classe, [](std::string texto) { return texto + '\r'; });
}

bool controla(Adulterado& relatorio, int vez, const Classe& classe) {
  return emUmaLinha(relatorio, vez, classe, [](std::string texto) {
    texto[30] = '\t';
    return texto;
  });
}

bool acentua(Adulterado& relatorio, int vez, const Classe& classe) {
  return emUmaLinha(relatorio, vez, classe, [](std::string texto) {
    texto[30] = '\xE7';
    return texto;
  });
}

}  // namespace

std::vector<Classe> classesDeBytes() {
  std::vector<Classe> classes;
  for (const char* registro : kComRegistros) {
    classes.push_back({std::string(registro) + " a byte short", corta, registro, "", 0, ""});
    classes.push_back({std::string(registro) + " a byte long", alonga, registro, "", 0, ""});
    classes.push_back({std::string(registro) + " with a carriage return", comRetorno, registro, "", 0, ""});
    classes.push_back({std::string(registro) + " with a tab", controla, registro, "", 0, ""});
    classes.push_back({std::string(registro) + " with a byte outside ASCII", acentua, registro, "", 0, ""});
  }
  return classes;
}

}  // namespace cotepe
