// cotepe, the program: a command line, and an exit status.
#include <cstdio>
#include <new>

#include "Idioma/Idioma.h"
#include "LinhaDeComando.h"
#include "Sistema/Falha.h"
#include "Sistema/Terminal.h"

int main(int argc, char** argv) {
  using namespace cotepe::programa;
  cotepe::preparaFluxosPadrao();
  cotepe::instalaSinais();
  cotepe::escolheIdioma();
  argv = cotepe::argumentosEmUtf8(argc, argv);
  try {
    leLinhaDeComando(argc, argv)();
    return kFeito;
  } catch (const SemLeitor& falha) {
    return falha.situacao();
  } catch (const Veredito& veredito) {
    avisa(veredito.what());
    return veredito.situacao();
  } catch (const Falha& falha) {
    const bool interrompida = falha.situacao() > 128;
    interrompida ? avisa(falha.what()) : avisaErro(falha.what());
    return falha.situacao();
  } catch (const std::bad_alloc&) {
    static_cast<void>(std::fprintf(stderr, "cotepe: %s\n", cotepe::traduz("out of memory")));
    return kNaoEscreve;
  } catch (const std::exception& erro) {
    avisaErro(erro.what());
    return kNaoEscreve;
  }
}
