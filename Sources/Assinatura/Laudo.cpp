#include "Assinatura/Laudo.h"

#include <algorithm>
#include <vector>

#include "Assinatura/Md5.h"

namespace cotepe {
namespace {

// One EAD line, the hash of the bytes before it, and what the line itself says.
struct Ead {
  EadLida lida;
  ResumoMd5 resumo{};
  LinhaEad linha;
  BlocoLido bloco;
};

// Another form of the file, which it may have had when it was signed.
struct OutraForma {
  FinsDeLinha fins = FinsDeLinha::ComoEstao;
  bool semBom = false;
  ResumoMd5 resumo{};  // of what precedes the EAD line
};

ResumoMd5 invertido(ResumoMd5 resumo) {
  std::reverse(resumo.begin(), resumo.end());
  return resumo;
}

class Exame {
 public:
  Exame(const Releitura& releitura, const ChavePublica& chave) : releitura_(releitura), chave_(chave) {}

  // Of several EAD lines the last one counts, unless only the first one is good.
  Laudo faz() {
    le();
    if (laudo_.eads == 0) {
      nota(Diagnostico::SemEad);
      return laudo_;
    }
    julga(ultima_);
    if (laudo_.eads == 1 || laudo_.conteudo == Conteudo::Confere) return laudo_;
    const Laudo daUltima = laudo_;
    julga(primeira_);
    return laudo_.conteudo == Conteudo::Confere ? laudo_ : daUltima;
  }

 private:
  void nota(Diagnostico diagnostico) { laudo_.diagnosticos.insert(diagnostico); }

  void le() {
    Md5 md5;
    const auto aoAchar = [&](const EadLida& lida) {
      ultima_.lida = lida;
      ultima_.resumo = md5.resumo();
      if (primeira_.lida.linha == 0) primeira_ = ultima_;
    };
    FormaDeEntrega forma(
        FinsDeLinha::ComoEstao, [&](std::string_view bytes) { md5.soma(bytes); }, aoAchar);
    passaTudo(releitura_(), forma);
    temLf_ = forma.temLf();
    temCrLf_ = forma.temCrLf();
    temBom_ = forma.temBom();
    tamanho_ = forma.tamanho();
    laudo_.linhas = forma.linhas();
    laudo_.eads = forma.eads();
    laudo_.resumo = md5.resumo();
  }

  // The line as a line, and then what it says of the bytes before it.
  void julga(Ead& ead) {
    comecaLaudo(ead);
    switch (ead.linha.forma) {
      case FormaDaEad::Outra:
        return nota(Diagnostico::SemDigitos);
      case FormaDaEad::SoResumo:
        return julgaMd5(ead);
      case FormaDaEad::DigitosPerdidos:
        nota(Diagnostico::DigitosPerdidos);
        break;
      case FormaDaEad::Assinatura:
        break;
    }
    BlocoRsa bloco{};
    if (chave_.abre(ead.linha.assinatura, bloco)) ead.bloco = leBloco(bloco);
    julgaBloco(ead);
  }

  void comecaLaudo(Ead& ead) {
    ead.linha = leEad(ead.lida.texto);
    formas_.clear();
    outraForma_ = false;
    laudo_.diagnosticos.clear();
    laudo_.parecer = Parecer::NaoSeSabe;
    laudo_.conteudo = Conteudo::NaoSeSabe;
    laudo_.temAssinado = false;
    laudo_.linhaDaEad = ead.lida.linha;
    laudo_.digitos = ead.linha.digitos;
    laudo_.resumo = ead.resumo;
    laudo_.depois = tamanho_ - ead.lida.fim;
    if (temBom_) nota(Diagnostico::Bom);
    if (laudo_.eads > 1) nota(Diagnostico::DuasEads);
    const bool legivel = ead.linha.forma != FormaDaEad::Outra;
    if (laudo_.depois != 0 || (legivel && ead.linha.sobra != 0)) nota(Diagnostico::TextoDepois);
    if (legivel && ead.linha.misturados) nota(Diagnostico::DigitosMisturados);
  }

  // Anybody can write it: agreement proves nothing, disagreement means that something was changed.
  void julgaMd5(const Ead& ead) {
    nota(Diagnostico::Md5Puro);
    diz(ead.linha.resumo);
    const bool confere = confronta(ead, ead.linha.resumo);
    laudo_.conteudo = confere ? Conteudo::Confere : Conteudo::Difere;
    if (!confere) nota(Diagnostico::OutroConteudo);
    if (!confere || outraForma_) laudo_.parecer = Parecer::Alterada;
  }

  void julgaBloco(const Ead& ead) {
    switch (ead.bloco.feitio) {
      case Feitio::Desconhecido:
        return nota(Diagnostico::OutraChave);
      case Feitio::Pkcs1Outro:
        return nota(Diagnostico::OutroResumo);
      case Feitio::Pkcs1:
        nota(Diagnostico::Pkcs1);
        break;
      case Feitio::Texto:
        nota(Diagnostico::ResumoEmTexto);
        break;
      case Feitio::Lei:
      case Feitio::LeiLivre:
        break;
    }
    julgaResumo(ead);
  }

  void julgaResumo(const Ead& ead) {
    diz(ead.bloco.resumo);
    bool confere = confronta(ead, ead.bloco.resumo);
    if (!confere && confronta(ead, invertido(ead.bloco.resumo))) {
      nota(Diagnostico::ResumoInvertido);
      confere = true;
    }
    if (confere) {
      laudo_.conteudo = Conteudo::Confere;
      laudo_.parecer = semFalta() ? Parecer::Valida : Parecer::Alterada;
    } else if (ead.bloco.feitio == Feitio::LeiLivre) {
      nota(Diagnostico::OutroOuOutraChave);
    } else {
      nota(Diagnostico::OutroConteudo);
      laudo_.conteudo = Conteudo::Difere;
      laudo_.parecer = Parecer::Alterada;
    }
  }

  void diz(const ResumoMd5& assinado) {
    laudo_.temAssinado = true;
    laudo_.assinado = assinado;
  }

  // When the content agrees: what else there is to say about a valid signature.
  bool semFalta() const {
    return !outraForma_ &&
           std::all_of(laudo_.diagnosticos.begin(), laudo_.diagnosticos.end(), [](Diagnostico diagnostico) {
             return diagnostico == Diagnostico::Pkcs1 || diagnostico == Diagnostico::Bom ||
                    diagnostico == Diagnostico::DuasEads;
           });
  }

  // Whether the bytes before the line have that hash, as they are or in another form.
  bool confronta(const Ead& ead, const ResumoMd5& resumo) {
    if (ead.resumo == resumo) return true;
    if (formas_.empty()) leOutrasFormas(ead);
    const auto forma = std::find_if(formas_.begin(), formas_.end(),
                                    [&](const OutraForma& outra) { return outra.resumo == resumo; });
    if (forma == formas_.end()) return false;
    if (forma->fins != FinsDeLinha::ComoEstao) nota(Diagnostico::FinsDeLinha);
    return outraForma_ = true;
  }

  void leOutrasFormas(const Ead& ead) {
    for (const bool semBom : {false, true}) {
      if (semBom && !temBom_) continue;
      if (semBom) leOutraForma({FinsDeLinha::ComoEstao, true, {}}, ead);
      if (temLf_) leOutraForma({FinsDeLinha::CrLf, semBom, {}}, ead);
      if (temCrLf_) leOutraForma({FinsDeLinha::Lf, semBom, {}}, ead);
    }
  }

  void leOutraForma(OutraForma forma, const Ead& ead) {
    Md5 md5;
    FormaDeEntrega passagem(
        forma.fins, [&](std::string_view bytes) { md5.soma(bytes); },
        [&](const EadLida& lida) {
          if (lida.linha == ead.lida.linha) forma.resumo = md5.resumo();
        });
    if (forma.semBom) passagem.tiraBom();
    passaTudo(releitura_(), passagem);
    formas_.push_back(forma);
  }

  const Releitura& releitura_;
  const ChavePublica& chave_;
  Laudo laudo_;
  Ead primeira_, ultima_;
  std::uint64_t tamanho_ = 0;  // of the file
  bool temLf_ = false, temCrLf_ = false, temBom_ = false;
  std::vector<OutraForma> formas_;  // those that were examined
  bool outraForma_ = false;         // the hash is that of one of them
};

}  // namespace

const char* nomeDe(Diagnostico diagnostico) {
  switch (diagnostico) {
    case Diagnostico::SemEad:
      return "no-ead";
    case Diagnostico::FinsDeLinha:
      return "line-ends-changed";
    case Diagnostico::ResumoInvertido:
      return "hash-reversed";
    case Diagnostico::DigitosPerdidos:
      return "digits-lost";
    case Diagnostico::Md5Puro:
      return "plain-md5";
    case Diagnostico::ResumoEmTexto:
      return "hash-as-text";
    case Diagnostico::TextoDepois:
      return "text-after-ead";
    case Diagnostico::Bom:
      return "byte-order-mark";
    case Diagnostico::DuasEads:
      return "two-eads";
    case Diagnostico::Pkcs1:
      return "pkcs1";
    case Diagnostico::OutraChave:
      return "other-key";
    case Diagnostico::OutroResumo:
      return "other-hash";
    case Diagnostico::OutroOuOutraChave:
      return "hash-differs-or-other-key";
    case Diagnostico::DigitosMisturados:
      return "mixed-digits";
    case Diagnostico::SemDigitos:
      return "no-digits";
    case Diagnostico::OutroConteudo:
      return "hash-differs";
  }
  return "";
}

const char* nomeDe(Parecer parecer) {
  return parecer == Parecer::Valida ? "valid" : parecer == Parecer::Alterada ? "changed" : "cannot-be-told";
}

const char* nomeDe(Conteudo conteudo) {
  return conteudo == Conteudo::Confere ? "agrees" : conteudo == Conteudo::Difere ? "differs" : "unknown";
}

Laudo verifica(const Releitura& releitura, const ChavePublica& chave) {
  return Exame(releitura, chave).faz();
}

}  // namespace cotepe
